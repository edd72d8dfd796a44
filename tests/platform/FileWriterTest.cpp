// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "platform/FileWriter.h"
#include "support/GameFolder.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace korvane {
namespace {

namespace fs = std::filesystem;

class FileWriterTest : public testing::Test {
 protected:
  QString pathOf(const std::string& relative) const { return folder_.qpath() + '\\' + relative.c_str(); }
  std::ptrdiff_t entries() const {
    return std::distance(fs::directory_iterator(folder_.native("")), fs::directory_iterator());
  }

  GameFolder folder_;
  FileWriter writer_;
};

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST_F(FileWriterTest, ReplacesWholeAndLeavesNothingBeside) {
  for (const std::string& bytes : {AllBytes(), std::string(), std::string(3 << 20, 'x')}) {
    EXPECT_EQ(writer_.replace(pathOf("a.ini"), bytes), "");
    EXPECT_EQ(folder_.read("a.ini"), bytes);
  }
  EXPECT_EQ(entries(), 2);  // the file and the data folder
}

TEST_F(FileWriterTest, ATargetThatCannotBeWrittenIsRefusedWithTheReason) {
  folder_.write("kept/inner.ini", "old");
  for (const std::string& target : {std::string("kept"), std::string("missing\\a.ini"),
                                    std::string("kept\\inner.ini\\a.ini"), std::string(300, 'n')}) {
    EXPECT_NE(writer_.replace(pathOf(target), "new"), "") << target;
    EXPECT_NE(writer_.create(pathOf(target), "new"), "") << target;
  }
  EXPECT_EQ(folder_.read("kept/inner.ini"), "old");
  EXPECT_EQ(entries(), 2);
}

TEST_F(FileWriterTest, CreatingNeverTouchesWhatIsThere) {
  EXPECT_EQ(writer_.create(pathOf("a.ini"), "first"), "");
  EXPECT_NE(writer_.create(pathOf("A.INI"), "second"), "");
  EXPECT_EQ(folder_.read("a.ini"), "first");
  EXPECT_EQ(entries(), 2);
}

#ifndef _WIN32

TEST_F(FileWriterTest, LinksStayLinksAndPermissionsStayAsTheyWere) {
  folder_.write("real.ini", "old");
  fs::permissions(folder_.native("real.ini"), fs::perms(0640));
  fs::create_symlink("real.ini", folder_.native("middle.ini"));
  fs::create_symlink("middle.ini", folder_.native("link.ini"));
  EXPECT_EQ(writer_.replace(pathOf("link.ini"), "new"), "");
  EXPECT_TRUE(fs::is_symlink(folder_.native("link.ini")) && fs::is_symlink(folder_.native("middle.ini")));
  EXPECT_EQ(folder_.read("real.ini"), "new");
  EXPECT_EQ(fs::status(folder_.native("real.ini")).permissions(), fs::perms(0640));
}

TEST_F(FileWriterTest, AFileMarkedAsFixedIsRefused) {
  folder_.write("a.ini", "old");
  const std::string file = folder_.native("a.ini").string();
  if (std::system(("chattr +i '" + file + "' 2>/dev/null").c_str()) != 0) GTEST_SKIP() << "no chattr here";
  EXPECT_NE(writer_.replace(pathOf("a.ini"), "new"), "");
  EXPECT_EQ(std::system(("chattr -i '" + file + "'").c_str()), 0);
  EXPECT_EQ(folder_.read("a.ini"), "old");
}

TEST_F(FileWriterTest, AFolderThatIsNotTheUsersToChangeIsRefused) {
  folder_.write("a.ini", "old");
  fs::permissions(folder_.native(""), fs::perms(0555));
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(2);  // for whom permissions count
    const bool refused = !writer_.replace(pathOf("a.ini"), "new").isEmpty() &&
                         !writer_.create(pathOf("b.ini"), "new").isEmpty();
    _exit(refused ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  fs::permissions(folder_.native(""), fs::perms(0755));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder_.read("a.ini"), "old");
  EXPECT_EQ(entries(), 2);
}

// The largest file that this process may write, as if the disk were full behind it.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

TEST_F(FileWriterTest, AFullDiskLeavesTheOldFileAndSaysSo) {
  const std::string bytes(200'000, 'n');
  folder_.write("a.ini", "old");
  for (rlim_t size = 0; size < bytes.size(); size += 4001) {
    const FileSizeLimit limit(size);
    EXPECT_NE(writer_.replace(pathOf("a.ini"), bytes), "") << size;
    EXPECT_NE(writer_.create(pathOf("b.ini"), bytes), "") << size;
    EXPECT_EQ(folder_.read("a.ini"), "old") << size;
  }
  EXPECT_EQ(entries(), 2);
}

// A process that saves one text after the other until it is killed.
pid_t StartSaving(const FileWriter& writer, const QString& path, const std::string (&texts)[2]) {
  const pid_t child = fork();
  for (int i = 0; child == 0; ++i) static_cast<void>(writer.replace(path, texts[i % 2]));
  return child;
}

// KORVANE_KILLS sets how many times.
TEST_F(FileWriterTest, KilledAtAnyMomentTheFileIsOldOrNew) {
  const char* asked = std::getenv("KORVANE_KILLS");
  const int kills = asked != nullptr ? std::atoi(asked) : 200;
  const std::string texts[] = {std::string(300'000, 'o'), std::string(200'000, 'n')};
  folder_.write("a.ini", texts[0]);
  std::minstd_rand random(1);
  int changed = 0;
  unsigned longest = 4000;  // microseconds; on a slow disk more, until a save comes through
  for (int i = 0; i < kills; ++i) {
    const pid_t child = StartSaving(writer_, pathOf("a.ini"), texts);
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
}

#endif

}  // namespace
}  // namespace korvane
