// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QLockFile>
#include <QTemporaryDir>

#include <set>

#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "support/GameFolder.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace korvane {
namespace {

class KeptVersionsTest : public testing::Test {
 protected:
  QStringList names() const { return QDir(versions_.folderOf(path_)).entryList(QDir::Files); }
  std::multiset<std::string> texts() const {
    std::multiset<std::string> texts;
    for (const QString& name : names()) {
      std::ifstream file(QDir(versions_.folderOf(path_)).filePath(name).toStdString(), std::ios::binary);
      texts.insert({std::istreambuf_iterator<char>(file), {}});
    }
    return texts;
  }

  QTemporaryDir folder_;
  GameFolder game_;
  FileWriter writer_;
  KeptVersions versions_{writer_, folder_.path()};
  const QString path_ = game_.qpath() + "\\Data\\INI\\Weapon.ini";
};

TEST_F(KeptVersionsTest, ASaveKeepsWhatLiesOnTheDiskWhoeverWroteIt) {
  EXPECT_EQ(versions_.keepReplaced(path_, "new"), "");  // nothing is replaced
  game_.write("Data/INI/Weapon.ini", "of another program");
  EXPECT_EQ(versions_.keepReplaced(path_, "of another program"), "");
  EXPECT_TRUE(names().isEmpty());
  EXPECT_EQ(versions_.keepReplaced(path_, "new"), "");
  EXPECT_EQ(texts(), std::multiset<std::string>{"of another program"});
  EXPECT_TRUE(names().first().endsWith(" Weapon.ini"));
}

TEST_F(KeptVersionsTest, TheNewestTenOfEachFileStay) {
  const QString other = path_ + 'x';
  EXPECT_EQ(versions_.keepUnsaved(other, false, "other"), "");
  for (int i = 0; i < 13; ++i) {
    EXPECT_EQ(versions_.keepUnsaved(path_, false, std::to_string(i)), "");
  }
  EXPECT_EQ(names().size(), 10);
  EXPECT_EQ(texts().count("12"), 1U);
  EXPECT_EQ(QDir(versions_.folderOf(other)).entryList(QDir::Files).size(), 1);
}

TEST_F(KeptVersionsTest, AnOldFileThatIsReplacedIsTheNewestVersion) {
  for (int i = 0; i < 10; ++i) EXPECT_EQ(versions_.keepUnsaved(path_, false, std::to_string(i)), "");
  game_.write("Data/INI/Weapon.ini", "old");
  std::filesystem::last_write_time(game_.native("Data/INI/Weapon.ini"), {});
  EXPECT_EQ(versions_.keepReplaced(path_, "new"), "");
  EXPECT_EQ(texts().count("old"), 1U);
  EXPECT_EQ(texts().count("0"), 0U);
}

TEST_F(KeptVersionsTest, NothingWrittenLaterChangesAKeptVersion) {
  const char* file = "Data/INI/Weapon.ini";
  const char* otherName = "Data/INI/Backup.ini";
  const auto saveOver = [&](const char* old, const char* written) {
    game_.write(file, old);
    EXPECT_EQ(versions_.keepReplaced(path_, "new"), "");
    EXPECT_EQ(writer_.replace(path_, "new"), "");
    game_.write(written, "in place");
    EXPECT_EQ(texts().count(old), 1U) << old;
  };
  saveOver("of one name", file);
  std::filesystem::create_hard_link(game_.native(file), game_.native(otherName));
  saveOver("of two names", otherName);
}

TEST_F(KeptVersionsTest, AFolderThatCannotBeMadeIsReported) {
  game_.write("Data/INI/Weapon.ini", "old");
  const KeptVersions nowhere(writer_, QString::fromStdString(game_.native("Data/INI/Weapon.ini").string()));
  EXPECT_NE(nowhere.keepReplaced(path_, "new"), "");
}

TEST_F(KeptVersionsTest, OnlyAJournalThatIsDiscardedLeavesNothing) {
  for (const bool discarded : {true, false}) {
    {
      UnsavedJournal journal(versions_);
      EXPECT_TRUE(journal.note(path_, false, "typed"));
      if (discarded) journal.discard();
    }
    const KeptVersions next(writer_, folder_.path());
    EXPECT_EQ(names().size(), discarded ? 0 : 1);
  }
}

#ifndef _WIN32

// Runs `action` as another copy of the program, which then ends without any notice.
template <typename Action>
void InAProcessThatDies(Action action) {
  const pid_t child = fork();
  if (child == 0) {
    action();
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

TEST_F(KeptVersionsTest, TextLostToACrashIsKeptAtTheNextStart) {
  const std::string lost("t\0yped\n", 7);
  InAProcessThatDies([&] {
    UnsavedJournal journal(versions_);
    journal.note(path_, true, "typed before");
    journal.note(path_, true, lost);
    _exit(0);
  });
  const KeptVersions next(writer_, folder_.path());
  EXPECT_EQ(texts(), std::multiset<std::string>{lost});
  EXPECT_TRUE(names().first().endsWith(" unsaved part of Weapon.ini"));
  const KeptVersions oneMore(writer_, folder_.path());
  EXPECT_EQ(names().size(), 1);
}

TEST_F(KeptVersionsTest, ASecondCopyOfTheProgramLeavesAnOpenTextAlone) {
  UnsavedJournal journal(versions_);
  journal.note(path_, false, "still open");
  InAProcessThatDies([&] { const KeptVersions second(writer_, folder_.path()); });
  EXPECT_TRUE(names().isEmpty());
}

TEST_F(KeptVersionsTest, TwoCopiesOfTheProgramLoseNothing) {
  const auto keepFive = [&](const char* prefix) {
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(versions_.keepUnsaved(path_, false, prefix + std::to_string(i)), "");
  };
  const pid_t child = fork();
  keepFive(child == 0 ? "a" : "b");
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(texts(),
            (std::multiset<std::string>{"a0", "a1", "a2", "a3", "a4", "b0", "b1", "b2", "b3", "b4"}));
}

TEST_F(KeptVersionsTest, TwoCopiesThatSaveAtOnceKeepEachOthersText) {
  game_.write("Data/INI/Weapon.ini", "first");
  const auto saveFive = [&](const char* prefix) {
    for (int i = 0; i < 5; ++i) {
      const std::string text = prefix + std::to_string(i);
      const auto lock = versions_.lock(path_);
      EXPECT_EQ(versions_.keepReplaced(path_, text), "");
      EXPECT_EQ(writer_.replace(path_, text), "");
    }
  };
  const pid_t child = fork();
  saveFive(child == 0 ? "a" : "b");
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  std::multiset<std::string> all = texts();
  all.insert(game_.read("Data/INI/Weapon.ini"));
  EXPECT_EQ(
      all, (std::multiset<std::string>{"a0", "a1", "a2", "a3", "a4", "b0", "b1", "b2", "b3", "b4", "first"}));
}

#endif

}  // namespace
}  // namespace korvane
