// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "files/FileLock.h"
#include "files/SafeReplace.h"
#include "files/WholeFile.h"
#include "support/FileSizeLimit.h"
#include "support/GameFolder.h"
#include "support/Processes.h"

#ifndef _WIN32
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace korvane {
namespace {

namespace fs = std::filesystem;

class SafeReplaceTest : public testing::Test {
 protected:
  fs::path pathOf(const std::string& relative) const { return folder_.native(relative); }
  std::ptrdiff_t entries() const {
    return std::distance(fs::directory_iterator(folder_.native("")), fs::directory_iterator());
  }
  std::string create(const std::string& relative, std::string_view bytes) const {
    WholeFile file(pathOf(relative));
    file.write(bytes);
    return file.create();
  }

  GameFolder folder_;
};

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST_F(SafeReplaceTest, ReplacesWholeAndLeavesNothingBeside) {
  const std::string longName(255, 'n');
  for (const std::string& name : {std::string("a.ini"), longName}) {
    for (const std::string& bytes : {AllBytes(), std::string(), std::string(3 << 20, 'x')}) {
      EXPECT_EQ(SafeReplace(pathOf(name), bytes), "");
      EXPECT_EQ(folder_.read(name), bytes);
    }
  }
  EXPECT_EQ(entries(), 3);  // the files and the data folder
}

TEST_F(SafeReplaceTest, WhatCannotBeAnOrdinaryFileIsRefusedWithTheReason) {
  folder_.write("kept/inner.ini", "old");
  std::vector<std::string> targets = {"kept", "missing/a.ini", "kept/inner.ini/a.ini", std::string(300, 'n')};
#ifndef _WIN32
  ASSERT_EQ(mkfifo(pathOf("pipe").c_str(), 0666), 0);
  fs::create_symlink("pipe", pathOf("linked pipe"));  // no device: broken code would replace it
  fs::create_symlink("loop", pathOf("loop"));
  targets.insert(targets.end(), {"pipe", "linked pipe", "loop"});
#endif
  const auto before = entries();
  for (const std::string& target : targets) {
    EXPECT_NE(SafeReplace(pathOf(target), "new"), "") << target;
    EXPECT_NE(create(target, "new"), "") << target;
  }
  EXPECT_EQ(folder_.read("kept/inner.ini"), "old");
  EXPECT_EQ(entries(), before);
}

TEST_F(SafeReplaceTest, CreatingNeverTouchesWhatIsThere) {
  EXPECT_EQ(create("a.ini", "first"), "");
  WholeFile late(pathOf("b.ini"));
  late.write("second");
  folder_.write("b.ini", "meanwhile");
  EXPECT_NE(late.create(), "");
  EXPECT_NE(create("a.ini", "second"), "");
  EXPECT_EQ(folder_.read("a.ini") + folder_.read("b.ini"), "firstmeanwhile");
}

TEST_F(SafeReplaceTest, WhatAKilledWriterLeftGoesWithTheNextSaveOfThatFile) {
  const std::string part = ".korvane-0123456789abcdef.part";
  const std::string stay[] = {"b.ini" + part, "xa.ini" + part, "a.ini.part", "a.ini.korvane-012.part"};
  folder_.write("a.ini", "old");
  folder_.write("a.ini" + part, "left over");
  for (const std::string& name : stay) folder_.write(name, "of somebody else");
  const auto before = entries();
  WholeFile running(pathOf("a.ini"));
  EXPECT_EQ(SafeReplace(pathOf("a.ini"), "new"), "");
  EXPECT_FALSE(fs::exists(pathOf("a.ini" + part)));
  EXPECT_EQ(entries(), before);  // one went, and the running writer's came
  running.write("newer");
  EXPECT_EQ(running.replace(), "");
  EXPECT_EQ(folder_.read("a.ini"), "newer");
}

TEST_F(SafeReplaceTest, PiecesCanBeWrittenOverBeforeTheFileTakesItsPlace) {
  WholeFile file(pathOf("a.ini"));
  file.write(std::string(100'000, 'x'));
  file.rewrite(3, "abc");
  file.write("end");
  EXPECT_EQ(file.size(), 100'003U);
  EXPECT_EQ(file.replace(), "");
  EXPECT_EQ(folder_.read("a.ini"), "xxxabc" + std::string(99'994, 'x') + "end");
}

TEST_F(SafeReplaceTest, ALockIsHeldByOneAndGoneWithItsHolder) {
  FileLock first;
  ASSERT_TRUE(first.take(pathOf("lock")));
  EXPECT_FALSE(FileLock().take(pathOf("lock"), std::chrono::milliseconds(20)));
  first.release();
  EXPECT_FALSE(fs::exists(pathOf("lock")));
#ifndef _WIN32
  const pid_t child = fork();
  if (child == 0) {
    FileLock killed;
    _exit(killed.take(pathOf("lock")) ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(fs::exists(pathOf("lock")));
#endif
  EXPECT_TRUE(first.take(pathOf("lock")));
  EXPECT_FALSE(FileLock().take(pathOf("missing/lock"), std::chrono::hours(1)));
}

#ifdef _WIN32

// A stream lets others write, but not remove or replace the file.
TEST_F(SafeReplaceTest, AFileThatIsHeldOpenIsWaitedForAndThenWrittenInPlace) {
  folder_.write("a.ini", "old");
  std::ifstream holder(pathOf("a.ini"));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_NE(SafeReplace(pathOf("a.ini"), "new").find("another program holds it open"), std::string::npos);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(400));
  EXPECT_EQ(folder_.read("a.ini"), "old");
  std::thread patient([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    holder.close();
  });
  EXPECT_EQ(SafeReplace(pathOf("a.ini"), "new"), "") << "it was let go in time";
  patient.join();
  holder.open(pathOf("a.ini"));
  EXPECT_EQ(SafeReplace(pathOf("a.ini"), "newer", [](ReplaceWay) { return ""; }), "");
  EXPECT_EQ(folder_.read("a.ini"), "newer");
  EXPECT_EQ(entries(), 2) << "nothing is left beside it";
}

TEST_F(SafeReplaceTest, AReadOnlyFileIsRefused) {
  folder_.write("a.ini", "old");
  fs::permissions(pathOf("a.ini"), fs::perms(0444));
  EXPECT_EQ(SafeReplace(pathOf("a.ini"), "new"), "the file is read-only");
  EXPECT_EQ(folder_.read("a.ini"), "old");
  fs::permissions(pathOf("a.ini"), fs::perms(0666));
}

#else

// Who waited for the file of a holder that has gone must not hold it: its name is another file by now.
TEST_F(SafeReplaceTest, NoTwoHoldALockThatChangesHandsAllTheTime) {
  std::atomic<int> holders = 0;
  std::atomic<int> others = 0;
  const auto takeOften = [&] {
    FileLock lock;
    for (int taken = 0; taken < 2000;) {
      if (!lock.take(pathOf("a.lock"))) continue;
      others += holders++;
      std::this_thread::yield();
      --holders;
      lock.release();
      ++taken;
    }
  };
  std::vector<std::jthread> threads;
  for (int i = 0; i < 3; ++i) threads.emplace_back(takeOften);
  threads.clear();
  EXPECT_EQ(others, 0);
}

TEST_F(SafeReplaceTest, LinksStayLinks) {
  folder_.write("real.ini", "old");
  fs::create_symlink("real.ini", pathOf("middle.ini"));
  fs::create_symlink("middle.ini", pathOf("link.ini"));
  EXPECT_EQ(SafeReplace(pathOf("link.ini"), "new"), "");
  EXPECT_TRUE(fs::is_symlink(pathOf("link.ini")) && fs::is_symlink(pathOf("middle.ini")));
  EXPECT_EQ(folder_.read("real.ini"), "new");
}

#ifdef __linux__

// An access list as the system stores it: the owner may write, user 1234 may read, others may nothing.
const std::string kAccessList(
    "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\4\0\322\4\0\0\4\0\4\0\377\377\377\377"
    "\20\0\4\0\377\377\377\377\40\0\0\0\377\377\377\377",
    44);

std::string Attribute(const fs::path& path, const char* name) {
  char value[256];
  const ssize_t size = getxattr(path.c_str(), name, value, sizeof value);
  return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
}

TEST_F(SafeReplaceTest, OwnerRightsAccessListAndAttributesStay) {
  const fs::path file = pathOf("a.ini");
  const auto set = [&file](const char* name, const std::string& value) {
    return setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
  };
  const std::pair<const char*, std::function<bool()> > cases[] = {
      {"rights", [&] { return chmod(file.c_str(), 0640) == 0; }},
      {"odd rights", [&] { return chmod(file.c_str(), 02707) == 0; }},
      {"group", [&] { return chown(file.c_str(), 0, 1234) == 0; }},
      {"owner", [&] { return chown(file.c_str(), 4321, 1234) == 0 && chmod(file.c_str(), 04755) == 0; }},
      {"attribute", [&] { return set("user.note", "mine"); }},
      {"access list", [&] { return set("system.posix_acl_access", kAccessList); }},
  };
  for (const auto& [name, change] : cases) {
    folder_.write("a.ini", "old");
    if (!change()) continue;  // not for this user or this file system
    struct stat before {};
    struct stat after {};
    const std::string note = Attribute(file, "user.note");
    const std::string list = Attribute(file, "system.posix_acl_access");
    ASSERT_EQ(stat(file.c_str(), &before), 0);
    EXPECT_EQ(SafeReplace(file, "new"), "") << name;
    ASSERT_EQ(stat(file.c_str(), &after), 0);
    EXPECT_NE(before.st_ino, after.st_ino) << name;
    EXPECT_EQ(before.st_uid, after.st_uid) << name;
    EXPECT_EQ(before.st_gid, after.st_gid) << name;
    EXPECT_EQ(before.st_mode, after.st_mode) << name;
    EXPECT_EQ(Attribute(file, "user.note"), note) << name;
    EXPECT_EQ(Attribute(file, "system.posix_acl_access"), list) << name;
    fs::remove(file);
  }
}

TEST_F(SafeReplaceTest, AFileMarkedAsFixedIsRefused) {
  folder_.write("a.ini", "old");
  const std::string file = pathOf("a.ini").string();
  if (std::system(("chattr +i '" + file + "' 2>/dev/null").c_str()) != 0) GTEST_SKIP() << "no chattr here";
  EXPECT_NE(SafeReplace(file, "new"), "");
  EXPECT_EQ(std::system(("chattr -i '" + file + "'").c_str()), 0);
  EXPECT_EQ(folder_.read("a.ini"), "old");
}

#endif

struct ForeignCase {
  const char* name;
  int folderRights;
  int fileRights;
  bool written;  // in place, once the former version is kept
};
constexpr ForeignCase kForeignCases[] = {
    {"a folder that takes no file", 0555, 0666, true},
    {"an owner that cannot be given", 0777, 0666, true},
    {"a folder where only owners rename", 01777, 0666, true},
    {"a file that is not to be written", 0777, 0444, false},
    {"neither", 0555, 0444, false},
};

TEST_F(SafeReplaceTest, WhatCannotBeReplacedIsWrittenInPlaceOnceItIsKept) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  for (const ForeignCase& each : kForeignCases) {
    folder_.write("a.ini", "old");
    fs::permissions(pathOf("a.ini"), fs::perms(each.fileRights));
    fs::permissions(pathOf(""), fs::perms(each.folderRights));
    const auto replace = [&](const char* bytes, const KeepFormer& keep) {
      return AsOrdinaryUser([&] { return SafeReplace(pathOf("a.ini"), bytes, keep).empty(); });
    };
    EXPECT_FALSE(replace("not kept", {})) << each.name;
    EXPECT_FALSE(replace("not kept", [](ReplaceWay) { return "no space"; })) << each.name;
    EXPECT_EQ(folder_.read("a.ini"), "old") << each.name;
    const auto keep = [](ReplaceWay way) { return way == ReplaceWay::inPlace ? "" : "the wrong way"; };
    EXPECT_EQ(replace("written", keep), each.written) << each.name;
    EXPECT_EQ(folder_.read("a.ini"), each.written ? "written" : "old") << each.name;
    EXPECT_FALSE(AsOrdinaryUser([&] { return create("b.ini", "new").empty() && each.folderRights == 0555; }));
    fs::permissions(pathOf(""), fs::perms(0755));
    EXPECT_EQ(entries(), each.folderRights == 0555 ? 2 : 3) << each.name;
    fs::remove(pathOf("a.ini"));
    fs::remove(pathOf("b.ini"));
  }
}

TEST_F(SafeReplaceTest, AFullDiskLeavesTheOldFileAndSaysSo) {
  folder_.write("a.ini", "old");
  for (const std::size_t all : {5'000U, 200'000U}) {
    const std::string bytes(all, 'n');
    for (rlim_t size = 0; size < all; size += all / 40 + 1) {
      const FileSizeLimit limit(size);
      EXPECT_NE(SafeReplace(pathOf("a.ini"), bytes), "") << size;
      EXPECT_NE(create("b.ini", bytes), "") << size;
      EXPECT_EQ(folder_.read("a.ini"), "old") << size;
    }
  }
  EXPECT_EQ(entries(), 2);
}

TEST_F(SafeReplaceTest, AFullDiskLeavesTheOldFileWhereItIsWrittenInPlaceToo) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  const std::string old(3'000, 'o');
  folder_.write("a.ini", old);
  fs::permissions(pathOf("a.ini"), fs::perms(0666));
  fs::permissions(pathOf(""), fs::perms(0555));
  for (rlim_t size = 0; size < 5'000; size += 700) {
    EXPECT_TRUE(AsOrdinaryUser([&] {
      const FileSizeLimit limit(std::max<rlim_t>(size, old.size()));  // the old blocks are the file's own
      return !SafeReplace(pathOf("a.ini"), std::string(5'000, 'n'), [](ReplaceWay) { return ""; }).empty();
    }));
    EXPECT_EQ(folder_.read("a.ini"), old) << size;
  }
}

// A process that saves one text after the other until it is killed.
pid_t StartSaving(const fs::path& path, const std::string (&texts)[2]) {
  const pid_t child = fork();
  if (child != 0) return child;
  for (std::size_t i = 0;; ++i) static_cast<void>(SafeReplace(path, texts[i % 2]));
}

// KORVANE_KILLS sets how many times.
TEST_F(SafeReplaceTest, KilledAtAnyMomentTheFileIsOldOrNew) {
  const char* asked = std::getenv("KORVANE_KILLS");
  const int kills = asked != nullptr ? std::atoi(asked) : 200;
  const std::string texts[] = {std::string(300'000, 'o'), std::string(200'000, 'n')};
  folder_.write("a.ini", texts[0]);
  std::minstd_rand random(1);
  int changed = 0;
  unsigned longest = 4000;  // microseconds; on a slow disk more, until a save comes through
  for (int i = 0; i < kills; ++i) {
    const pid_t child = StartSaving(pathOf("a.ini"), texts);
    usleep(static_cast<useconds_t>(random() % longest));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string now = folder_.read("a.ini");
    ASSERT_TRUE(now == texts[0] || now == texts[1]) << "after " << i << " kills: " << now.size() << " bytes";
    changed += now == texts[1] ? 1 : 0;
    if (changed == 0) longest = std::min(longest + longest / 8, 200'000U);
  }
  std::cout << kills << " kills, the new text in place after " << changed << " of them\n";
  EXPECT_GT(changed, 0);
  EXPECT_EQ(SafeReplace(pathOf("a.ini"), "end"), "");
  EXPECT_EQ(entries(), 2) << "what the killed ones left beside is gone";
}

#endif

}  // namespace
}  // namespace korvane
