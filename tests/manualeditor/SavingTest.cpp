// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>
#include <iostream>
#include <thread>

#include "manualeditor/ManEditFixture.h"
#include "platform/UnsavedJournal.h"
#include "support/Processes.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

const std::string kFile = GameFolder::CrLf("Weapon Gun\n  Damage = 10 ; much\nEnd\nWeapon Knife\nEnd\n");
const QString kText = QString::fromStdString(kFile);

class SavingTest : public ManEditTest {
 protected:
  fs::path native() const { return game_.native("Data/INI/Weapon.ini"); }
  // Another program writes the file, later than the window's clock can tell apart.
  void writeElsewhere(std::string_view bytes) const { game_.write("Data/INI/Weapon.ini", bytes); }
  // Nothing can be kept while the result lives.
  std::unique_ptr<QFile> blockKeeping() const {
    EXPECT_TRUE(QDir(folder_.path()).mkpath("versions"));
    auto inTheWay = std::make_unique<QFile>(versions_.folderOf(path_));
    EXPECT_TRUE(inTheWay->open(QIODevice::WriteOnly));
    return inTheWay;
  }
  void activate() const {
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window_.get(), &activation);
    QCoreApplication::processEvents();
  }
  QStringList drafts() const {
    return QDir(folder_.filePath("versions/open")).entryList({"*.journal"}, QDir::Files);
  }
};

TEST_F(SavingTest, EditingAndSavingWritesTheFileAndKeepsTheFormerOne) {
  openFile(kFile);
  type("; mine");
  part<QAction>("Save")->trigger();
  EXPECT_EQ(saved(), "; mine" + kFile);
  EXPECT_TRUE(messages_.shown.empty());
  window_->close();
  EXPECT_EQ(keptTexts(), QStringList("replaced: " + kText));
}

TEST_F(SavingTest, LineEndsOfAnyKindAreSavedAsTheGameExpectsThem) {
  for (const auto& [bytes, written] :
       {std::pair("a\rb\r", "a\r\nb\r\n"), {"a\nb\r\n\r", "a\r\nb\r\n\r\n"}, {"\r", "\r\n"}, {"a", "a"}}) {
    openFile(bytes);
    trigger("MnuSave");
    EXPECT_EQ(saved(), written);
  }
}

TEST_F(SavingTest, ASaveThatFailsSaysWhyAndKeepsTheText) {
  openFile(kFile);
  type("x");
  fs::remove(native());
  const std::function<void()> obstacles[] = {
      [this] { fs::create_directory(native()); },
      [this] { fs::create_symlink(game_.native("missing/Weapon.ini"), native()); },
#ifndef _WIN32
      [this] { ASSERT_EQ(mkfifo(native().c_str(), 0666), 0); },
      [this] {
        ASSERT_EQ(mkfifo(game_.native("pipe").c_str(), 0666), 0);
        fs::create_symlink(game_.native("pipe"), native());
      },
#endif
  };
  for (const auto& obstacle : obstacles) {
    obstacle();
    messages_.shown.clear();
    trigger("MnuSave");
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_TRUE(messages_.shown[0].text.startsWith("The file was not saved: \r\n" + path_ + "\r\n"));
    EXPECT_TRUE(text().isModified());
    fs::remove(native());
  }
  EXPECT_EQ(text().fileBytes().bytes, "x" + kFile);
}

TEST_F(SavingTest, ASaveThatOnlyAnAdministratorMayDoOffersToRestart) {
  openFile(kFile);
  type("x");
  fs::remove(native());
  fs::create_directory(native());  // any reason to fail
  process_.refused = true;
  QSignalSpy asked(window_.get(), &FrmManEdit::administratorAsked);
  for (const auto& [answer, restarts] : {std::pair("Cancel", 0), {"Restart as administrator", 1}}) {
    messages_.answers = QStringList(answer);
    trigger("MnuSave");
    EXPECT_EQ(asked.size(), 0) << "in the middle of the save";
    QCoreApplication::processEvents();
    EXPECT_EQ(asked.size(), restarts) << answer;
  }
  ASSERT_EQ(messages_.asked.size(), 2U);
  EXPECT_TRUE(messages_.asked[0].text.startsWith("The file was not saved: \r\n" + path_ + "\r\n"));
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_TRUE(text().isModified());
  fs::remove(native());
}

TEST_F(SavingTest, ASaveTellsThatItsFormerVersionCouldNotBeKept) {
  openFile(kFile);
  type("x");
  const auto blocked = blockKeeping();
  trigger("MnuSave");
  EXPECT_EQ(saved(), std::string("x") + kFile);
  ASSERT_EQ(messages_.shown.size(), 1U);
  EXPECT_TRUE(messages_.shown[0].text.contains("its former version could not be kept"));
}

TEST_F(SavingTest, AFileThatKeepsChangingIsRefused) {
  openFile(kFile);
  game_.write("Data/INI/Armor.ini", "");
  std::jthread writer([this](const std::stop_token& stop) {
    std::ofstream file(game_.native("Data/INI/Armor.ini"), std::ios::binary);
    for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(5))) {
      file << "; more" << std::flush;
    }
  });
  EXPECT_FALSE(window_->open({game_.qpath() + "\\Data\\INI\\Armor.ini"}));
  ASSERT_EQ(messages_.shown.size(), 1U);
  EXPECT_EQ(text().fileBytes().bytes, kFile);
}

TEST_F(SavingTest, ACharacterThatNoFileCanHoldIsNamedAndSelectedAndNothingIsWritten) {
  openFile(kFile);
  find("much");
  QGuiApplication::clipboard()->setText(QString::fromUtf8("ä😀"));
  trigger("MnuPaste");
  trigger("MnuSave");
  ASSERT_EQ(messages_.shown.size(), 1U);
  for (const char* named : {"U+1F600", "line 2", "column 18"}) {
    EXPECT_TRUE(messages_.shown[0].text.contains(named)) << messages_.shown[0].text.toStdString();
  }
  EXPECT_EQ(text().selectedText(), QString::fromUtf8("😀"));
  EXPECT_EQ(saved(), kFile);
}

TEST_F(SavingTest, AnOpeningThatComesToNothingChangesNeitherTextNorItsFile) {
  openFile(kFile);
  EXPECT_FALSE(window_->open({game_.qpath() + "\\Data\\INI\\Armor.ini"}));
  type("x");
  trigger("MnuSave");
  EXPECT_EQ(saved(), "x" + kFile);
  EXPECT_FALSE(std::filesystem::exists(game_.native("Data/INI/Armor.ini")));
}

struct RefusedCase {
  const char* name;
  std::string bytes;
  const char* message;  // none: it is opened
};

TEST_F(SavingTest, WhatTheGameCannotReadOrTheWindowCannotShowIsRefused) {
  const std::string nul(1, '\0');
  const RefusedCase cases[] = {
      {"UTF-16", "\xFF\xFEO" + nul + "b" + nul + "j" + nul + "e" + nul + "c" + nul, "UTF-16"},
      {"UTF-16, the other way", "\xFE\xFF" + nul + "O" + nul + "b" + nul + "j" + nul + "e", "UTF-16"},
      {"UTF-16, very short", "\xFF\xFEO" + nul, "UTF-16"},
      {"only its mark", "\xFF\xFE", nullptr},
      {"its mark and other text", "\xFF\xFEObject Tank", nullptr},
      {"NUL bytes", "O" + nul + "b" + nul + "j" + nul, nullptr},
      {"UTF-8", "\xEF\xBB\xBFObject", nullptr},
  };
  for (const RefusedCase& each : cases) {
    openFile(kFile);
    messages_.shown.clear();
    game_.write("Data/INI/Armor.ini", each.bytes);
    EXPECT_EQ(window_->open({game_.qpath() + "\\Data\\INI\\Armor.ini"}), each.message == nullptr)
        << each.name;
    EXPECT_EQ(messages_.shown.empty(), each.message == nullptr) << each.name;
    EXPECT_TRUE(messages_.shown.empty() || messages_.shown[0].text.contains(each.message)) << each.name;
    EXPECT_EQ(text().fileBytes().bytes, each.message == nullptr ? each.bytes : kFile) << each.name;
  }
}

TEST_F(SavingTest, AFileTooLargeToBeShownIsRefusedUnread) {
  openFile(kFile);
  game_.write("Data/INI/Armor.ini", "x");
  fs::resize_file(game_.native("Data/INI/Armor.ini"), (std::uintmax_t{200} << 20) + 1);
  EXPECT_FALSE(window_->open({game_.qpath() + "\\Data\\INI\\Armor.ini"}));
  ASSERT_EQ(messages_.shown.size(), 1U);
  EXPECT_TRUE(messages_.shown[0].text.startsWith("The file is too large to be shown: "));
}

TEST_F(SavingTest, UnsavedTextsAreKeptWhenTheWindowIsClosed) {
  openFile(kFile);
  type("first");
  openPart("Weapon Gun\r\n");
  text().replaceSelection(QString::fromUtf8("\u20BF"));
  window_->close();
  EXPECT_EQ(keptTexts(), QStringList({"unsaved: " + QString::fromUtf8("\u20BF") + "Weapon Gun\r\n",
                                      "unsaved: first" + kText}));
  EXPECT_TRUE(kept()[0].part && kept()[0].utf8);
  EXPECT_FALSE(kept()[1].part || kept()[1].utf8);
  EXPECT_TRUE(messages_.shown.empty() && messages_.asked.empty());
  EXPECT_EQ(saved(), kFile);
  EXPECT_EQ(closed_, 1);
}

struct LosingCase {
  const char* answer;
  bool part;
  bool closes;
  bool isSaved;
};
constexpr LosingCase kLosingCases[] = {
    {"Cancel", false, false, false},      {"Cancel", true, false, false},
    {"Save", false, true, true},          {"", false, false, false},
    {"Close anyway", false, true, false}, {"Close anyway", true, true, false},
};

TEST_F(SavingTest, ATextThatCannotBeKeptGoesOnlyWhenTheUserSaysSo) {
  for (const LosingCase& each : kLosingCases) {
    remake();
    openFile(kFile);
    if (each.part) openPart(kFile);
    type("x");
    const auto inTheWay = blockKeeping();
    messages_.asked.clear();
    messages_.answers = {each.answer};
    EXPECT_EQ(window_->close(), each.closes) << each.answer;
    ASSERT_EQ(messages_.asked.size(), 1U) << each.answer;
    EXPECT_TRUE(messages_.asked[0].text.contains(path_));
    EXPECT_EQ(messages_.asked[0].answers.contains("Save"), !each.part);
    EXPECT_EQ(messages_.asked[0].answers.last(), "Cancel");
    EXPECT_EQ(saved(), (each.isSaved ? "x" : "") + kFile);
    EXPECT_EQ(window_->isVisible(), !each.closes);
    EXPECT_EQ(text().fileBytes().bytes, "x" + kFile);
    inTheWay->remove();
    // What was given up is tried again at the next start; the window's own draft is left alone.
    const KeptVersions next(files_, folder_.filePath("versions"));
    const bool left = each.closes && !each.isSaved;
    EXPECT_EQ(next.recovered().size(), left ? 1U : 0U) << each.answer;
    QDir(versions_.folderOf(path_)).removeRecursively();
    text().setUnmodified();
    window_->close();
  }
}

TEST_F(SavingTest, ATextThatCannotBeKeptStaysWhenItsTabIsClosed) {
  openFile(kFile);
  type("x");
  openPart("part");
  trigger("nextTab");
  const auto inTheWay = blockKeeping();
  trigger("closeTab");
  EXPECT_EQ(text().fileBytes().bytes, "x" + kFile);
  EXPECT_EQ(panel(5), path_);
  EXPECT_FALSE(window_->keepUnsavedTexts());
  inTheWay->remove();
  EXPECT_TRUE(window_->keepUnsavedTexts());
  EXPECT_EQ(messages_.asked.size(), 2U);
}

TEST_F(SavingTest, AProgramThatIsEndedAsksNothingAndLosesNothing) {
  openFile(kFile);
  type("x");
  const auto inTheWay = blockKeeping();
  qputenv("TMPDIR", folder_.path().toLocal8Bit());
  testing::internal::CaptureStderr();
  window_->keepAtEnd();
  const QString said = QString::fromStdString(testing::internal::GetCapturedStderr());
  qunsetenv("TMPDIR");
  const QStringList refuge = QDir(folder_.path()).entryList({"Korvane * Weapon.ini"}, QDir::Files);
  ASSERT_EQ(refuge.size(), 1);
  EXPECT_TRUE(said.contains(folder_.filePath(refuge[0]))) << said.toStdString();
  QFile file(folder_.filePath(refuge[0]));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), "x" + kFile);
  EXPECT_TRUE(messages_.asked.empty() && messages_.shown.empty());
  inTheWay->remove();
  window_->keepAtEnd();
  EXPECT_EQ(keptTexts(), QStringList("unsaved: x" + kText));
}

struct OtherBytesCase {
  const char* answer;
  const char* onDisk;  // afterwards, before the rest of the file
  const char* shown;
  QStringList kept;
};

TEST_F(SavingTest, AFileThatAnotherProgramChangedIsReplacedOnlyWhenTheUserSaysSo) {
  const OtherBytesCase cases[] = {
      {"Cancel", "other", "mine", {}},
      {"Save anyway", "mine", "mine", {"replaced: other" + kText}},
      {"Load the new text", "other", "other", {"unsaved: mine" + kText}},
  };
  for (const OtherBytesCase& each : cases) {
    openFile(kFile);
    type("mine");
    writeElsewhere("other" + kFile);
    fs::last_write_time(native(), {});  // older than what was opened, and not less changed
    messages_.asked.clear();
    messages_.answers = {each.answer};
    trigger("MnuSave");
    ASSERT_EQ(messages_.asked.size(), 1U) << each.answer;
    EXPECT_EQ(messages_.asked[0].text, "Weapon.ini was changed by another program since it was opened.");
    EXPECT_EQ(messages_.asked[0].answers, QStringList({"Save anyway", "Load the new text", "Cancel"}));
    EXPECT_EQ(saved(), each.onDisk + kFile) << each.answer;
    EXPECT_EQ(text().fileBytes().bytes, each.shown + kFile) << each.answer;
    EXPECT_EQ(keptTexts(), each.kept) << each.answer;
    QDir(versions_.folderOf(path_)).removeRecursively();
    text().setUnmodified();
  }
}

TEST_F(SavingTest, OnlyOtherBytesAreAChange) {
  openFile(kFile);
  type("mine");
  writeElsewhere(kFile);
  fs::last_write_time(native(), {});
  trigger("MnuSave");
  writeElsewhere("mine" + kFile);
  type("again");
  trigger("MnuSave");
  EXPECT_TRUE(messages_.asked.empty());
  EXPECT_EQ(saved(), "mineagain" + kFile);
}

TEST_F(SavingTest, AFileThatChangedWhileNothingWasTypedIsLoadedAnew) {
  std::string lines;
  for (int i = 0; i < 300; ++i) lines += "line " + std::to_string(i) + "\r\n";
  openFile(lines);
  find("line 200");
  writeElsewhere("first\r\n" + lines);
  activate();
  EXPECT_EQ(text().fileBytes().bytes, "first\r\n" + lines);
  EXPECT_EQ(panel(1), "Line 201 of 302");
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "line 200");
  EXPECT_EQ(notices(), QStringList("Weapon.ini was changed by another program and is loaded anew."));
  EXPECT_FALSE(text().isModified());
  trigger("MnuSave");
  EXPECT_TRUE(messages_.asked.empty());
  EXPECT_EQ(notices(), QStringList());
}

TEST_F(SavingTest, AChangedFileThatCannotBeShownOrWouldTakeWhatWasTypedIsNotLoaded) {
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"typed", [this] { type("x"); }},
      {"endless", [this] { writeElsewhere(std::string(300'000, 'x')); }},
      {"a folder",
       [this] {
         fs::remove(native());
         fs::create_directory(native());
       }},
      {"a part", [this] { openPart(kFile); }},
  };
  for (const auto& [name, change] : cases) {
    openFile(kFile);
    writeElsewhere("other");
    change();
    const std::string shown = text().fileBytes().bytes;
    activate();
    EXPECT_EQ(text().fileBytes().bytes, shown) << name;
    EXPECT_TRUE(messages_.shown.empty()) << name;
    fs::remove(native());
    text().setUnmodified();
  }
}

TEST_F(SavingTest, AVanishedFileLeavesItsTextWhichIsUnsavedFromThenOn) {
  openFile(kFile);
  fs::remove(native());
  activate();
  EXPECT_EQ(notices(), QStringList("Weapon.ini is no longer there. Its text is not saved."));
  EXPECT_EQ(text().fileBytes().bytes, kFile);
  writeElsewhere(kFile);
  activate();
  EXPECT_EQ(notices(), QStringList());
  fs::remove(native());
  activate();
  window_->close();
  EXPECT_EQ(keptTexts(), QStringList("unsaved: " + kText));
}

TEST_F(SavingTest, AFormerVersionThatCannotBeReadIsGivenUpOnlyWhenTheUserSaysSo) {
#ifndef _WIN32
  if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  for (const char* place : {"", "Data", "Data/INI"}) fs::permissions(game_.native(place), fs::perms(0777));
  fs::permissions(folder_.path().toStdString(), fs::perms(0777));
  openFile(kFile);
  type("x");
  ASSERT_EQ(chown(native().c_str(), 65534, 65534), 0);
  fs::permissions(native(), fs::perms(0200));
  const auto savedAs = [this](const QStringList& answers) {
    return AsOrdinaryUser([&] {
      messages_.answers = answers;
      trigger("MnuSave");
      return messages_.asked.size() == 1 && !text().isModified();
    });
  };
  EXPECT_FALSE(savedAs({}));
  EXPECT_EQ(saved(), kFile);
  EXPECT_TRUE(savedAs({"Save anyway"}));
  EXPECT_EQ(saved(), "x" + kFile);
#endif
}

TEST_F(SavingTest, WhatIsTypedIsNotedWhileKeysKeepComingAndGoesWithTheSave) {
  openFile(kFile);
  constexpr int kTurn = 50;  // milliseconds at least
  for (int turns = 0; drafts().isEmpty() && turns < 6000 / kTurn; ++turns) {
    type("x");
    QTest::qWait(kTurn);
  }
  EXPECT_EQ(drafts().size(), 1);
  trigger("MnuSave");
  EXPECT_TRUE(drafts().isEmpty());
  type("y");
  window_->close();
  EXPECT_TRUE(drafts().isEmpty());
}

TEST_F(SavingTest, ALargeDraftIsNotedInManySteps) {
  UnsavedJournal journal(versions_);
  QSignalSpy noted(&journal, &UnsavedJournal::noted);
  journal.noteSoon({path_, false, std::string(42'000'000, 'x')});
  int turns = 0;
  for (; noted.isEmpty() && turns < 1000; ++turns) QCoreApplication::processEvents();
  EXPECT_GT(turns, 30);
  ASSERT_EQ(noted.size(), 1);
  EXPECT_EQ(noted[0][0].toString(), "");
  ASSERT_EQ(drafts().size(), 1);
  EXPECT_GT(QFileInfo(folder_.filePath("versions/open/" + drafts()[0])).size(), 42'000'000);
}

// Copying the text out of the control is one step too. Processor time, so that other programs do not count;
// nor does the checker, for this is no data file.
TEST_F(SavingTest, NotingALargeDraftHoldsTheWindowUpForAMoment) {
  std::string large;
  while (large.size() < 42'000'000) large += "    AnimationMode                = LOOP\r\n";
  game_.write("Large.txt", large);
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Large.txt"}));
  show();
  type("x");
  double longest = 0;
  const std::clock_t latest = std::clock() + 60 * CLOCKS_PER_SEC;
  const auto size = [this] {
    return drafts().isEmpty() ? 0 : QFileInfo(folder_.filePath("versions/open/" + drafts()[0])).size();
  };
  while (size() < 42'000'000 && std::clock() < latest) {
    const std::clock_t begin = std::clock();
    QCoreApplication::processEvents();
    longest = std::max(longest, 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
  }
  std::cout << "longest turn while 42 MB are noted: " << longest << " ms\n";
  EXPECT_LT(longest, 50);
  EXPECT_GE(size(), 42'000'000);
}

TEST_F(SavingTest, WhatCannotBeNotedIsSaid) {
  ASSERT_TRUE(QDir(folder_.path()).mkpath("versions"));
  QFile inTheWay(folder_.filePath("versions/open"));
  ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
  openFile(kFile);
  type("x");
  EXPECT_TRUE(WaitFor([this] { return !notices().isEmpty(); }, 1500));
  EXPECT_TRUE(notices()[0].startsWith("What is typed is not safe from a crash: "));
  inTheWay.remove();
  EXPECT_TRUE(WaitFor([this] { return !drafts().isEmpty(); }, 1500)) << "without another key";
  EXPECT_TRUE(notices().isEmpty());
}

}  // namespace
}  // namespace korvane
