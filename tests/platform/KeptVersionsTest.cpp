// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <array>
#include <set>

#include "files/NativePath.h"
#include "platform/FileSaving.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedJournal.h"
#include "support/GameFolder.h"
#include "support/Processes.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

using Texts = std::multiset<std::string>;

class KeptVersionsTest : public testing::Test {
 protected:
  // What is kept of the file: "replaced: text", "unsaved part: text", "crashed: text".
  Texts texts() const {
    constexpr const char* kKinds[] = {"replaced", "unsaved", "crashed"};
    Texts texts;
    for (const KeptVersion& version : KeptVersions::versionsIn(versions_.folderOf(path_))) {
      const std::string kind = kKinds[static_cast<int>(version.kind)];
      const std::string what =
          kind + (version.part ? " part" : "") + (version.utf8 ? " in UTF-8" : "") + ": ";
      texts.insert(what + KeptVersions::read(version).value_or("unreadable").toStdString());
    }
    return texts;
  }
  std::size_t count(const std::string& sort) const {
    const Texts all = texts();
    return static_cast<std::size_t>(
        std::ranges::count_if(all, [&](const std::string& text) { return text.starts_with(sort); }));
  }

  FileSaved save(std::string_view bytes) const {
    return SaveFile({.path = path_, .bytes = bytes, .utf8 = bytes}, writer_, versions_);
  }
  QString keepUnsaved(const std::string& text, bool part = false) const {
    return versions_.keepUnsaved({path_, part, text});
  }
  void write(std::string_view bytes) const { game_.write("Data/INI/Weapon.ini", bytes); }
  std::string onDisk() const { return game_.read("Data/INI/Weapon.ini"); }
  fs::path native() const { return game_.native("Data/INI/Weapon.ini"); }
  // A file among the versions that another release or another day has left.
  void plant(const QString& name, const std::string& text) const {
    ASSERT_TRUE(QDir().mkpath(versions_.folderOf(path_)));
    std::ofstream((versions_.folderOf(path_) + '/' + name).toStdString(), std::ios::binary) << text;
  }

  QTemporaryDir folder_;
  GameFolder game_;
  FileWriter writer_;
  KeptVersions versions_{writer_, folder_.path()};
  const QString path_ = game_.qpath() + "\\Data\\INI\\Weapon.ini";
};

TEST_F(KeptVersionsTest, ASaveKeepsWhatLiesOnTheDiskWhoeverWroteIt) {
  EXPECT_EQ(save("first").reason, "");  // nothing is replaced
  EXPECT_EQ(save("first").reason, "");
  EXPECT_EQ(texts(), Texts());
  write("of another program");
  EXPECT_EQ(save("new").reason, "");
  EXPECT_EQ(onDisk(), "new");
  EXPECT_EQ(texts(), Texts{"replaced: of another program"});
}

TEST_F(KeptVersionsTest, TenReplacedAndTenUnsavedVersionsStay) {
  write("0");
  EXPECT_EQ(keepUnsaved("typed"), "");
  for (int i = 1; i <= 13; ++i) EXPECT_EQ(save(std::to_string(i)).reason, "");
  EXPECT_EQ(count("replaced"), 10U);
  EXPECT_EQ(texts().count("replaced: 12") + texts().count("unsaved: typed"), 2U);
  for (int i = 1; i <= 13; ++i) EXPECT_EQ(keepUnsaved(std::to_string(i), i % 2 == 0), "");
  EXPECT_EQ(count("unsaved"), 10U);
  EXPECT_EQ(count("replaced"), 10U);
  EXPECT_EQ(texts().count("unsaved: 13"), 1U);
}

TEST_F(KeptVersionsTest, TheNewestVersionStaysWhateverTheClockSaysOfTheOthers) {
  write("old");
  for (int i = 0; i < 10; ++i) {
    plant(QStringLiteral("0000001%1 2099-01-01 00.00.00Z replaced Weapon.ini").arg(i), std::to_string(i));
    plant(QStringLiteral("2099-01-%1 00.00.00.000 unsaved Weapon.ini").arg(10 + i), "former");
  }
  plant("note of the user.txt", "not a version");
  plant("00000099 2099-01-01 00.00.00Z replaced Weapon.ini.korvane-0123456789abcdef.part", "ol");
  EXPECT_EQ(save("new").reason, "");
  const std::vector<KeptVersion> versions = KeptVersions::versionsIn(versions_.folderOf(path_));
  EXPECT_EQ(versions.front().number, 20U);
  EXPECT_EQ(KeptVersions::read(versions.front()), "old");
  EXPECT_LT(std::abs(versions.front().time.secsTo(QDateTime::currentDateTimeUtc())), 60);
  EXPECT_EQ(versions.front().time.timeSpec(), Qt::UTC);
  EXPECT_EQ(texts().count("replaced: 0"), 0U);
  EXPECT_EQ(count("unsaved: former"), 10U);
  EXPECT_EQ(versions.back().number, 0U);
  EXPECT_EQ(versions.back().time, QDateTime(QDate(2099, 1, 10), QTime(0, 0)).toUTC());
  EXPECT_TRUE(QFile::exists(versions_.folderOf(path_) + "/note of the user.txt"));
  EXPECT_TRUE(QDir(versions_.folderOf(path_)).entryList({"*.part"}, QDir::Files).isEmpty());
}

TEST_F(KeptVersionsTest, VersionsTellTheirFileAndTheirCharacters) {
  write("caf\xE9");
  EXPECT_EQ(save("x").reason, "");
  EXPECT_EQ(keepUnsaved("\xE2\x82\xBF and more", true), "");  // a character without a byte
  EXPECT_EQ(texts(), (Texts{"replaced: caf\xC3\xA9", "unsaved part in UTF-8: \xE2\x82\xBF and more"}));
  const std::vector<KeptVersions::File> files = versions_.files();
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].path, path_);
  EXPECT_EQ(files[0].name, "weapon.ini");
  EXPECT_EQ(files[0].folder, versions_.folderOf(path_));
}

TEST_F(KeptVersionsTest, LetterCaseAndSeparatorsMakeNoOtherFile) {
  EXPECT_EQ(versions_.folderOf(path_.toUpper().replace('\\', '/')), versions_.folderOf(path_));
  EXPECT_NE(versions_.folderOf(path_ + 'x'), versions_.folderOf(path_));
}

#ifdef _WIN32  // no file has a line end in its name there
constexpr const char* kOddName = "two lines %1 \u00E4.ini";
#else
constexpr const char* kOddName = "two\nlines %1 \u00E4.ini";
#endif

TEST_F(KeptVersionsTest, NamesOfAnyLengthAndCharactersAreKept) {
  for (const QString& name : {QString(250, 'n') + ".ini", QString(kOddName), QString("part ")}) {
    const QString path = game_.qpath() + '\\' + name;
    EXPECT_EQ(versions_.keepUnsaved({path, true, "typed"}), "") << name.toStdString();
    const std::vector<KeptVersion> kept = KeptVersions::versionsIn(versions_.folderOf(path));
    ASSERT_EQ(kept.size(), 1U) << name.toStdString();
    EXPECT_EQ(KeptVersions::read(kept[0]), "typed");
    EXPECT_TRUE(kept[0].part && kept[0].kind == KeptVersion::Kind::closedUnsaved);
  }
}

TEST_F(KeptVersionsTest, ALongNameIsCutBetweenTwoCharacters) {
  const KeptVersion version{.number = 7, .time = QDateTime::fromSecsSinceEpoch(0, Qt::UTC)};
  for (const char* end : {"", "a", "ab", "abc"}) {
    const QString name = QString::fromUtf8("\U0001F600").repeated(60) + end;
    EXPECT_EQ(VersionOfName(NameOfVersion(version, name)), version) << end;
  }
}

TEST_F(KeptVersionsTest, TheSameTextIsNotKeptAgain) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(keepUnsaved("typed"), "");
    write("old");
    EXPECT_EQ(save("new").reason, "");
  }
  EXPECT_EQ(texts(), (Texts{"replaced: old", "unsaved: typed"}));
  EXPECT_EQ(keepUnsaved("typed", true), "");
  EXPECT_EQ(count("unsaved"), 2U);
}

TEST_F(KeptVersionsTest, NothingWrittenLaterChangesAKeptVersion) {
  const auto saveOver = [&](const char* old, const char* written) {
    write(old);
    EXPECT_EQ(save("new").reason, "");
    game_.write(written, "in place");
    EXPECT_EQ(texts().count(std::string("replaced: ") + old), 1U) << old;
  };
  saveOver("of one name", "Data/INI/Weapon.ini");
  fs::create_hard_link(native(), game_.native("Data/INI/Backup.ini"));
  saveOver("of two names", "Data/INI/Backup.ini");
}

#ifndef _WIN32  // files get no second name there

TEST_F(KeptVersionsTest, NoVersionIsASecondNameOfTheFileAsItIsNow) {
  write("old");
  FormerVersion former(versions_, path_, "old");
  EXPECT_EQ(former.keep(ReplaceWay::renamed), "");
  EXPECT_TRUE(fs::equivalent(native(), NativePath(ProgramPath(former.file().toStdString()))));
  former.undo();
  EXPECT_EQ(texts(), Texts());
  EXPECT_EQ(former.keep(ReplaceWay::renamed), "");  // and the program is killed before the replacing
  write("written by another program");
  EXPECT_EQ(save("new").reason, "");
  EXPECT_EQ(texts(), Texts{"replaced: written by another program"});
  EXPECT_EQ(former.keep(ReplaceWay::renamed), "");  // once more, and the next save writes in place
  FormerVersion next(versions_, path_, "new");
  EXPECT_EQ(next.keep(ReplaceWay::inPlace), "");
  write("in place");
  EXPECT_EQ(texts().count("replaced: new"), 1U);
}

#endif

TEST_F(KeptVersionsTest, WhatCannotBeKeptIsReportedAndTheSaveGoesOn) {
  write("old");
  ASSERT_TRUE(QFile(versions_.folderOf(path_)).open(QIODevice::WriteOnly));  // in the way of the folder
  EXPECT_NE(keepUnsaved("typed"), "");
  const FileSaved saved = save("new");
  EXPECT_EQ(saved.reason, "");
  EXPECT_NE(saved.notKept, "");
  EXPECT_EQ(onDisk(), "new");
}

TEST_F(KeptVersionsTest, AFileWithOtherBytesThanExpectedIsNotReplaced) {
  write("of another program");
  FileToSave file{.path = path_, .bytes = "new", .utf8 = "new", .opened = MarkOf("opened")};
  const FileSaved stopped = SaveFile(file, writer_, versions_);
  EXPECT_EQ(stopped.stop, FileSaved::Stop::otherBytes);
  EXPECT_EQ(onDisk(), "of another program");
  file.opened = stopped.seen;
  write("of another one");
  EXPECT_EQ(SaveFile(file, writer_, versions_).stop, FileSaved::Stop::otherBytes);
  write("of another program");
  EXPECT_EQ(SaveFile(file, writer_, versions_).stop, FileSaved::Stop::none);
  EXPECT_EQ(onDisk(), "new");
}

struct JournalCase {
  const char* name;
  std::string journal;
  const char* kept;  // among the versions at the next start
};
std::vector<JournalCase> JournalCases(const std::string& path) {
  const std::string nul(1, '\0');
  return {
      {"whole", nul + path + nul + nul + nul + "typed", "crashed: typed"},
      {"part", nul + path + nul + "part" + nul + nul + "ty\nped\n", "crashed part: ty\r\nped\r\n"},
      {"a character without a byte", nul + path + nul + nul + nul + "\xE2\x82\xBF",
       "crashed in UTF-8: \xE2\x82\xBF"},
      {"empty", nul + path + nul + nul + nul, "crashed: "},
      {"of an earlier release", path + "\n\ntyped\n", "crashed: typed\n"},
      {"a part of an earlier release", path + "\npart\n\xE9", "crashed part: \xC3\xA9"},
  };
}

TEST_F(KeptVersionsTest, EveryJournalThatACrashLeftBecomesAVersion) {
  for (const JournalCase& each : JournalCases(path_.toStdString())) {
    const QString journal = folder_.filePath("open/a.journal");
    ASSERT_TRUE(QDir().mkpath(folder_.filePath("open")));
    std::ofstream(journal.toStdString(), std::ios::binary) << each.journal;
    const KeptVersions next(writer_, folder_.path());
    EXPECT_EQ(texts(), Texts{each.kept}) << each.name;
    EXPECT_FALSE(QFile::exists(journal)) << each.name;
    ASSERT_EQ(next.recovered().size(), 1U) << each.name;
    EXPECT_EQ(next.recovered()[0].path, path_);
    QDir(versions_.folderOf(path_)).removeRecursively();
  }
}

TEST_F(KeptVersionsTest, LocksOfKilledProgramsGoAtTheNextStart) {
  UnsavedJournal running(versions_);
  EXPECT_EQ(running.note({path_, false, "typed"}), "");
  std::ofstream(folder_.filePath("open/a.journal.lock").toStdString()) << "";
  const KeptVersions next(writer_, folder_.path());
  EXPECT_EQ(QDir(folder_.filePath("open")).entryList({"*.lock"}, QDir::Files).size(), 1);
}

TEST_F(KeptVersionsTest, AJournalStaysUntilItsTextIsKept) {
  const QString journal = folder_.filePath("open/a.journal");
  ASSERT_TRUE(QDir().mkpath(folder_.filePath("open")));
  QFile inTheWay(versions_.folderOf(path_));
  ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
  for (const std::string& text : {JournalCases(path_.toStdString())[0].journal, std::string("no journal"),
                                  std::string("\0no journal\0", 12)}) {
    std::ofstream(journal.toStdString(), std::ios::binary) << text;
    const KeptVersions next(writer_, folder_.path());
    EXPECT_TRUE(QFile::exists(journal));
    EXPECT_TRUE(next.recovered().empty());
  }
}

TEST_F(KeptVersionsTest, OnlyAJournalThatIsDiscardedLeavesNothing) {
  for (const bool discarded : {true, false}) {
    {
      UnsavedJournal journal(versions_);
      EXPECT_EQ(journal.note({path_, false, "typed"}), "");
      if (discarded) journal.discard();
    }
    const KeptVersions next(writer_, folder_.path());
    EXPECT_EQ(count("crashed"), discarded ? 0U : 1U);
  }
  EXPECT_TRUE(QDir(folder_.filePath("open")).isEmpty());
}

TEST_F(KeptVersionsTest, AFileThatWasCutOffInPlaceIsNamedWithItsFormerVersion) {
  write("old");
  FormerVersion former(versions_, path_, "old");
  ASSERT_EQ(former.keep(ReplaceWay::inPlace), "");
  struct Case {
    const char* onDisk;
    bool torn;
    std::size_t lost;
  };
  for (const Case& each : {Case{"new text", false, 0}, Case{"old", false, 1}, Case{"new ", true, 1}}) {
    write(each.onDisk);
    UnsavedJournal(versions_).note({path_, false, "new text", former.file()});
    const KeptVersions next(writer_, folder_.path());
    EXPECT_EQ(next.recovered().size(), each.lost) << each.onDisk;
    ASSERT_EQ(next.torn().size(), each.torn ? 1U : 0U) << each.onDisk;
    EXPECT_TRUE(!each.torn || next.torn()[0].former == former.file());
  }
  EXPECT_EQ(texts(), (Texts{"replaced: old", "crashed: new text"}));
}

#ifndef _WIN32

fs::perms Rights(const QString& file) {
  return fs::status(NativePath(ProgramPath(file.toStdString()))).permissions();
}

TEST_F(KeptVersionsTest, NobodyElseReadsDraftsAndVersions) {
  write("old");
  fs::permissions(native(), fs::perms(0600));
  EXPECT_EQ(save("new").reason, "");
  EXPECT_EQ(keepUnsaved("typed"), "");
  UnsavedJournal journal(versions_);
  EXPECT_EQ(journal.note({path_, false, "typed"}), "");
  QStringList files = QDir(folder_.filePath("open")).entryList({"*.journal"}, QDir::Files);
  ASSERT_EQ(files.size(), 1);
  files[0] = folder_.filePath("open/" + files[0]);
  for (const KeptVersion& version : KeptVersions::versionsIn(versions_.folderOf(path_)))
    files += version.file;
  EXPECT_EQ(files.size(), 3);
  for (const QString& file : files) EXPECT_EQ(Rights(file), fs::perms(0600)) << file.toStdString();
}

TEST_F(KeptVersionsTest, AFileWrittenInPlaceHasAFormerVersionOfItsOwn) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  fs::permissions(folder_.path().toStdString(), fs::perms(0777));
  fs::permissions(game_.native(""), fs::perms(0755));
  write("old");
  fs::permissions(native(), fs::perms(0666));
  EXPECT_TRUE(AsOrdinaryUser([&] { return save("new").reason.isEmpty(); }));
  EXPECT_EQ(onDisk(), "new");
  EXPECT_EQ(texts(), Texts{"replaced: old"});
  EXPECT_TRUE(QDir(folder_.filePath("open")).isEmpty());
  fs::permissions(folder_.path().toStdString(), fs::perms(0700));  // nothing can be kept any more
  EXPECT_TRUE(AsOrdinaryUser([&] { return !save("newer").reason.isEmpty(); }));
  EXPECT_EQ(onDisk(), "new");
}

TEST_F(KeptVersionsTest, AFormerVersionThatCannotBeReadIsGivenUpOnlyWhenAsked) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  fs::permissions(folder_.path().toStdString(), fs::perms(0777));
  for (const char* place : {"", "Data", "Data/INI"}) fs::permissions(game_.native(place), fs::perms(0777));
  const auto trySave = [&](bool formerMayGo) {
    return AsOrdinaryUser([&] {
      const FileToSave file{.path = path_, .bytes = "new", .utf8 = "new", .formerMayGo = formerMayGo};
      return SaveFile(file, writer_, versions_).stop == FileSaved::Stop::none;
    });
  };
  write("old");
  ASSERT_EQ(chown(native().c_str(), 65534, 65534), 0);
  fs::permissions(native(), fs::perms(0200));
  EXPECT_FALSE(trySave(false));
  EXPECT_EQ(onDisk(), "old");
  EXPECT_TRUE(trySave(true));
  EXPECT_EQ(onDisk(), "new");
}

TEST_F(KeptVersionsTest, TextLostToACrashIsKeptAtTheNextStart) {
  const std::string lost("t\0yped\r\n", 8);
  InAProcessThatDies([&] {
    UnsavedJournal journal(versions_);
    journal.note({path_, true, "typed before"});
    journal.note({path_, true, lost});
    _exit(0);
  });
  for (int start = 0; start < 2; ++start) {
    const KeptVersions next(writer_, folder_.path());
    EXPECT_EQ(texts(), Texts{"crashed part: " + lost});
  }
}

TEST_F(KeptVersionsTest, ASecondCopyOfTheProgramLeavesAnOpenTextAlone) {
  UnsavedJournal journal(versions_);
  journal.note({path_, false, "still open"});
  const fs::path lock = fs::path(folder_.path().toStdString()) / "open";
  for (const fs::directory_entry& entry : fs::directory_iterator(lock)) {
    fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(1));
  }
  InAProcessThatDies([&] { const KeptVersions second(writer_, folder_.path()); });
  EXPECT_EQ(texts(), Texts());
}

TEST_F(KeptVersionsTest, TwoCopiesOfTheProgramLoseNothing) {
  const auto keepFive = [&](const char* prefix) {
    for (int i = 0; i < 5; ++i) EXPECT_EQ(keepUnsaved(prefix + std::to_string(i)), "");
  };
  const pid_t child = fork();
  keepFive(child == 0 ? "a" : "b");
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(count("unsaved: a") + count("unsaved: b"), 10U);
}

TEST_F(KeptVersionsTest, TwoCopiesThatSaveAtOnceKeepEachOthersText) {
  write("first");
  const auto saveFive = [&](const char* prefix) {
    for (int i = 0; i < 5; ++i) EXPECT_EQ(save(prefix + std::to_string(i)).reason, "");
  };
  const pid_t child = fork();
  saveFive(child == 0 ? "a" : "b");
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  Texts all = texts();
  all.insert("replaced: " + onDisk());
  EXPECT_EQ(all.size(), 11U);
  EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), 11U);
}

#endif

}  // namespace
}  // namespace korvane
