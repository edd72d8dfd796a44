// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

#include "app/Services.h"
#include "platform/FileWriter.h"
#include "settings/SettingsStore.h"
#include "setup/DBCtlView.h"
#include "setup/FolderChooser.h"
#include "setup/frmWizard.h"
#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/Fakes.h"
#include "support/FileSizeLimit.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

using Records = StockRecords;
using Lines = std::vector<std::string>;

class WizardTest : public testing::Test {
 protected:
  enum Nav { help, cancel, back, next, finish };

  void SetUp() override {
    qputenv("HOME", game.native("").string().c_str());
    game.write("generals.exe", "");
    pack({{"Data\\INI\\Weapon.ini", "Weapon A\r\nEnd\r\n"}});
  }

  void pack(const Records& records) {
    StockTable table(program.native("Data"));
    for (const auto& [path, text] : records) table.add(path, text);
    table.commit();
  }

  void open() {
    wizard = std::make_unique<frmWizard>(services, chooser, writer);
    wizard->show();
    chooser.BrowseHost = wizard->PicBrouse();
    chooser.BrowseForFolder({});
  }
  // Opens the wizard and goes on until the files are restored.
  void restore() {
    open();
    click(next);
    chooser.SelectedFolder = game.qpath();
    waitForNext(true);
    click(next);
  }

  QPushButton* nav(Nav button) const {
    return wizard->findChild<QPushButton*>(QString("cmdNav%1").arg(button));
  }
  void waitForNext(bool enabled) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return nav(next)->isEnabled() == enabled; }));
  }
  void click(Nav button) { QTest::mouseClick(nav(button), Qt::LeftButton); }
  // With the mouse while the click of a shortcut is still to come.
  void clickTwice(Nav button) {
    QSignalSpy clicked(nav(button), &QPushButton::clicked);
    nav(button)->animateClick();  // what a shortcut does
    click(button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.size() == 2; })) << clicked.size();
  }
  QString label() const { return wizard->findChild<QLabel*>("Label1")->text(); }
  // What step 2 says below its progress: the summary and the rows of its list.
  Lines report() const {
    const auto* list = wizard->findChild<QTreeWidget*>("LstRestored");
    if (list->parentWidget()->isHidden()) return {};
    Lines lines = {wizard->findChild<QLabel*>("LblRestored")->text().toStdString()};
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
      const QTreeWidgetItem& row = *list->topLevelItem(i);
      lines.push_back((row.text(0) + ": " + row.text(1)).toStdString());
    }
    return lines;
  }
  bool showsStep(int step) const {
    const auto* frame = wizard->findChild<QWidget*>(QString("fraStep%1").arg(step));
    return frame->isEnabled() && frame->x() == 0;
  }
  void everyTurn(std::function<void()> action) {
    yield.onTurn = [this, action] {
      action();
      everyTurn(action);
    };
  }
  std::optional<QString> storedFolder() const { return store.find("Paths", "CCPath"); }

  GameFolder game;
  GameFolder program;
  QTemporaryDir settings;
  SettingsStore store{settings.path()};
  FakeMessageBoxes messages;
  FakeHelpViewer helpViewer;
  FakeProcessEnd processEnd;
  ScriptedYield yield;
  FakeShell shell;
  Folders folders{{}, program.qpath()};
  Services services{store, messages, shell, helpViewer, processEnd, yield, folders};
  FolderChooser chooser;
  FileWriter writer;
  std::unique_ptr<frmWizard> wizard;
};

TEST_F(WizardTest, TheKeyboardLeadsFromTheIntroductionToTheEditor) {
  open();
  QSignalSpy finished(wizard.get(), &frmWizard::finished);
  QSignalSpy gone(wizard.get(), &frmWizard::closedForGood);
  EXPECT_EQ(wizard->windowTitle(), "Command And Conquer Generals - Korvane Setup Wizard - Introduction");
  QTest::keyClick(nav(next), Qt::Key_Return);
  EXPECT_EQ(storedFolder(), "");
  auto* tree = wizard->findChild<QTreeView*>("BrowseTree");
  waitForNext(false);
  tree->setCurrentIndex(tree->model()->index(0, 0));
  QTest::keyClick(tree, Qt::Key_Down);  // the home folder
  waitForNext(true);
  QTest::keyClick(tree, Qt::Key_Return);
  EXPECT_EQ(storedFolder(), game.qpath());
  EXPECT_EQ(label(), "The Files Have Been Extracted, Click Next To Continue.");
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"), "Weapon A\r\nEnd\r\n");
  EXPECT_FALSE(nav(cancel)->isEnabled());
  click(next);
  EXPECT_EQ(wizard->windowTitle(), "Command And Conquer Generals - Korvane Setup Wizard - Finished!");
  EXPECT_FALSE(nav(next)->isEnabled());
  QTest::keyClick(nav(finish), Qt::Key_Return);
  EXPECT_EQ(finished.size(), 1);
  EXPECT_EQ(gone.size(), 1);
  EXPECT_EQ(processEnd.ends, 0);
  EXPECT_EQ(wizard->findChild<QTreeView*>("BrowseTree")->isVisible(), false);
  EXPECT_EQ(store.GetSet("MenuiBold"), "False");
  EXPECT_GT(store.GetSet("MenuiFontSize").toInt(), 5);
}

TEST_F(WizardTest, FinishKeepsATreeFontThatTheUserChose) {
  store.SaveSet("MenuiItalic", "True");
  restore();
  click(next);
  click(finish);
  EXPECT_FALSE(store.find("Settings", "MenuiFont"));
  EXPECT_EQ(store.GetSet("MenuiItalic"), "True");
}

TEST_F(WizardTest, CancelForgetsTheGameFolderAndEndsTheProgram) {
  store.saveGameFolder("C:\\Old");
  open();
  click(cancel);
  EXPECT_FALSE(storedFolder());
  EXPECT_EQ(processEnd.ends, 1);
  EXPECT_TRUE(store.find("EditWH", "frmWizard_Width"));
}

TEST_F(WizardTest, ClosingTheWindowEndsTheProgramAndKeepsTheFolder) {
  restore();
  wizard->close();
  EXPECT_EQ(storedFolder(), game.qpath());
  EXPECT_EQ(processEnd.ends, 1);
  EXPECT_TRUE(store.find("EditWH", "frmWizard_Width"));
}

TEST_F(WizardTest, ClosingAfterAFolderWasStoredLeavesAPlainTreeFont) {
  restore();
  wizard->close();
  EXPECT_EQ(store.GetSet("MenuiBold"), "False");
  EXPECT_EQ(store.GetSet("MenuiStrikeout"), "False");
}

TEST_F(WizardTest, ClosingBeforeAFolderWasSelectedPutsTheOldOneBack) {
  store.saveGameFolder("C:\\Old");
  open();
  click(next);
  EXPECT_EQ(storedFolder(), "");
  wizard->close();
  EXPECT_EQ(storedFolder(), "C:\\Old");
}

TEST_F(WizardTest, AFolderWithoutTheGameIsRefused) {
  open();
  click(next);
  chooser.SelectedFolder = game.qpath() + "\\Data";
  nav(next)->setEnabled(true);  // as it stands until the next look
  click(next);
  EXPECT_TRUE(showsStep(1));
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, "Invalid path, Try a differnet directory");
  EXPECT_EQ(storedFolder(), "");
}

TEST_F(WizardTest, StepsCanBeGoneBackAndFilesAreRestoredOnlyOnTheWayForward) {
  restore();
  click(next);
  click(back);
  EXPECT_TRUE(showsStep(2));
  fs::remove(game.native("Data/INI/Weapon.ini"));
  click(next);
  EXPECT_TRUE(showsStep(3));
  EXPECT_FALSE(fs::exists(game.native("Data/INI/Weapon.ini")));
  for (int i = 0; i < 5; ++i) click(back);
  EXPECT_TRUE(showsStep(0));
  EXPECT_TRUE(nav(finish)->isEnabled());
}

TEST_F(WizardTest, AShortcutThatComesTooLateLeadsNowhere) {
  open();
  click(next);
  clickTwice(back);
  EXPECT_TRUE(showsStep(0));
  restore();
  clickTwice(next);
  EXPECT_TRUE(showsStep(3));
}

TEST_F(WizardTest, TheIntroductionCanBeSkippedByASetting) {
  QSettings(settings.filePath("Wizards.ini"), QSettings::IniFormat)
      .setValue("WizardTemplate/IntroductionScreen", "ShowIntro");
  open();
  EXPECT_TRUE(showsStep(1));
  click(back);
  EXPECT_TRUE(showsStep(0));
}

TEST_F(WizardTest, HelpOpensTheTopicOfTheStep) {
  open();
  click(help);
  click(next);
  QTest::keyClick(wizard->findChild<QTreeView*>("BrowseTree"), Qt::Key_F1);
  EXPECT_EQ(helpViewer.topics, (std::vector{1010, 1020}));
}

TEST_F(WizardTest, TheTimerRunsOnlyWhileTheWizardIsOnTheScreen) {
  open();
  auto* timer = wizard->findChild<QTimer*>("Timer1");
  ASSERT_NE(timer, nullptr);
  EXPECT_TRUE(timer->isActive());
  wizard->hide();
  EXPECT_FALSE(timer->isActive());
}

TEST_F(WizardTest, RestoringMakesFoldersAndLeavesAloneWhatIsThere) {
  const std::string bytes("\xff\0 no line end", 14);
  game.write("Data/INI/Armor.ini", "");
  game.write("blocked", "a file in a folder's place");
  fs::create_directory_symlink(program.native(""), game.native("away"));
  pack({{"Data\\INI\\New\\Deep\\Unit.ini", bytes},
        {"Data\\INI\\Armor.ini", "stock"},
        {"blocked\\in\\x.ini", "stock"},
        {"Data\\INI", "a folder has this name"},
        {"..\\outside.ini", "hostile"},
        {"\\outside.ini", "hostile"},
        {"C:\\outside.ini", "hostile"},
        {"away\\outside.ini", "hostile"},
        {"last.ini", "stock"}});
  int turns = 0;
  everyTurn([&] { turns += label().contains('%'); });
  restore();
  EXPECT_GE(turns, 9) << "one for each record, also where there is nothing to write";
  EXPECT_EQ(label(), "The Files Have Been Extracted, Click Next To Continue.");
  EXPECT_EQ(game.read("Data/INI/New/Deep/Unit.ini"), bytes);
  EXPECT_EQ(game.read("Data/INI/Armor.ini"), "");
  EXPECT_EQ(game.read("blocked"), "a file in a folder's place");
  EXPECT_EQ(game.read("last.ini"), "stock");
  EXPECT_FALSE(fs::exists(game.native("../outside.ini")));
  EXPECT_FALSE(fs::exists("/outside.ini"));
  EXPECT_FALSE(fs::exists(program.native("outside.ini")));
  const std::string sample = ": sample text of the program";
  const std::string unsafe = ": not written: its path is none of a file in the game folder";
  EXPECT_EQ(report(),
            (Lines{"6 files were not written. 2 files were written.",
                   "blocked\\in\\x.ini: not written: Not a directory", "Data\\INI: not written: File exists",
                   "..\\outside.ini" + unsafe, "\\outside.ini" + unsafe, "C:\\outside.ini" + unsafe,
                   "away\\outside.ini: not written: a link on its way leads out of the game folder",
                   "Data\\INI\\New\\Deep\\Unit.ini" + sample, "last.ini" + sample}));
}

TEST_F(WizardTest, TheGamesOwnArchivesAreRestoredFromAndNothingElse) {
  game.write("B.big", ArchiveBytes({{"data/ini/weapon.INI", "from B"}, {"Data\\INI\\Armor.ini", "armour"}}));
  game.write("C.BIG",
             ArchiveBytes({{"Data\\INI\\Weapon.ini", "from C"}, {"Data\\INI\\x.ini", "not in the table"}}));
  game.write("Data/A.big", ArchiveBytes({{"Data\\INI\\Weapon.ini", "not the game's"}}));
  game.write("damaged.big", "BIGF");
  pack({{"Data\\INI\\Weapon.ini", "sample"},
        {"Data\\INI\\Armor.ini", "sample"},
        {"Data\\INI\\CommandSet.ini", "sample"}});
  restore();
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"), "from B");
  EXPECT_EQ(game.read("Data/INI/Armor.ini"), "armour");
  EXPECT_FALSE(fs::exists(game.native("Data/INI/CommandSet.ini")));
  EXPECT_FALSE(fs::exists(game.native("Data/INI/x.ini")));
  const Lines told = report();
  ASSERT_EQ(told.size(), 5U);
  EXPECT_NE(told[1].find("damaged.big"), std::string::npos) << told[1];
  EXPECT_EQ(told,
            (Lines{"1 file was not written. 2 files were written.", told[1],
                   "Data\\INI\\CommandSet.ini: not written: it is in no archive",
                   "Data\\INI\\Weapon.ini: from B.big; also in C.BIG", "Data\\INI\\Armor.ini: from B.big"}));
}

TEST_F(WizardTest, AGameWhoseArchivesCannotBeReadGetsNoSample) {
  game.write("INI.big", "PK");
  restore();
  EXPECT_FALSE(fs::exists(game.native("Data/INI/Weapon.ini")));
  EXPECT_EQ(report().size(), 3U);
}

#ifndef _WIN32

TEST_F(WizardTest, AFullDiskIsToldFileByFileAndCanBeTriedAgain) {
  pack({{"large.ini", std::string(300'000, 'x')}, {"small.ini", "x"}});
  {
    const FileSizeLimit limit(100'000);
    restore();
  }
  EXPECT_EQ(label(), "The Files Have Been Extracted, Click Next To Continue.");
  const Lines told = report();
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[0], "1 file was not written. 1 file was written.");
  EXPECT_TRUE(told[1].starts_with("large.ini: not written: ")) << told[1];
  EXPECT_EQ(told[2], "small.ini: sample text of the program");
  EXPECT_FALSE(fs::exists(game.native("large.ini")));
  click(back);
  waitForNext(true);
  click(next);
  EXPECT_EQ(game.read("large.ini").size(), 300'000U);
  EXPECT_EQ(report().at(0), "1 file was written.");
  click(back);
  waitForNext(true);
  click(next);
  EXPECT_EQ(report(), Lines());
}

#endif

TEST_F(WizardTest, FilesThatOnlyAnAdministratorMayWriteOfferToRestart) {
  fs::remove_all(game.native("Data"));
  game.write("Data", "in the way of the folder");
  processEnd.refused = true;
  restore();
  ASSERT_EQ(messages.asked.size(), 1U);
  EXPECT_EQ(messages.asked[0].answers, (QStringList{"Restart as administrator", "Continue"}));
  EXPECT_EQ(processEnd.startsAsAdministrator, 0);
  messages.answers = QStringList("Restart as administrator");
  click(back);
  waitForNext(true);
  click(next);
  EXPECT_EQ(processEnd.startsAsAdministrator, 1);
  EXPECT_EQ(processEnd.ends, 1);
  EXPECT_EQ(storedFolder(), game.qpath());
}

TEST_F(WizardTest, TheProgressIsExact) {
  Records records;
  for (int i = 0; i < 50; ++i) records.emplace_back("f" + std::to_string(i), "x");
  pack(records);
  QStringList labels;
  QString tip;
  everyTurn([&] {
    labels += label();
    if (label().contains("(58%")) tip = wizard->findChild<QProgressBar*>()->toolTip();
  });
  restore();
  EXPECT_EQ(tip, "File 29 of 50");
  EXPECT_TRUE(labels.contains("Extracting Files... (2% Complete)"));
  EXPECT_TRUE(labels.contains("Extracting Files... (100% Complete)"));
}

TEST_F(WizardTest, BackInTheMiddleOfRestoringEndsItAndNextTakesItUpAgain) {
  pack({{"a.ini", "a"}, {"b.ini", "b"}, {"c.ini", "c"}});
  bool pressed = false;
  everyTurn([&] {
    if (pressed || !label().contains("33%")) return;
    pressed = true;
    click(back);
  });
  restore();
  EXPECT_TRUE(showsStep(1));
  EXPECT_TRUE(fs::exists(game.native("a.ini")));
  EXPECT_FALSE(fs::exists(game.native("b.ini")));
  waitForNext(true);
  click(next);
  EXPECT_EQ(game.read("c.ini"), "c");
}

TEST_F(WizardTest, FinishInTheMiddleOfRestoringComesAfterTheLastFile) {
  restore();
  click(next);
  for (int i = 0; i < 2; ++i) click(back);
  pack({{"a.ini", "a"}, {"b.ini", "b"}, {"c.ini", "c"}});
  QSignalSpy finished(wizard.get(), &frmWizard::finished);
  everyTurn([&] {
    if (label().contains("33%")) click(finish);
  });
  waitForNext(true);
  click(next);
  EXPECT_EQ(game.read("c.ini"), "c");
  EXPECT_EQ(finished.size(), 1);
}

TEST_F(WizardTest, ASecondRestoringInTheMiddleOfTheFirstFinishesTheWork) {
  pack({{"a.ini", "a"}, {"b.ini", "b"}, {"c.ini", "c"}});
  bool pressed = false;
  everyTurn([&] {
    if (pressed || !label().contains("33%")) return;
    pressed = true;
    click(back);
    click(next);
  });
  restore();
  EXPECT_EQ(game.read("c.ini"), "c");
  EXPECT_TRUE(nav(next)->isEnabled());
  EXPECT_EQ(label(), "The Files Have Been Extracted, Click Next To Continue.");
}

TEST_F(WizardTest, ClosingInTheMiddleOfRestoringWritesNoFurtherFile) {
  pack({{"a.ini", "a"}, {"b.ini", "b"}});
  std::size_t gone = 0;
  everyTurn([&] {
    if (!wizard->isVisible() || !label().contains("50%")) return;
    QObject::connect(wizard.get(), &frmWizard::closedForGood, [&] { ++gone; });
    wizard->close();
    EXPECT_EQ(gone, 0u) << "a call of the window is still running";
  });
  restore();
  EXPECT_EQ(gone, 1u);
  EXPECT_EQ(processEnd.ends, 1);
  EXPECT_FALSE(fs::exists(game.native("b.ini")));
}

struct Damage {
  const char* name;
  std::string table;  // contents of the table's file; empty: no such file
  int helpTopic;
};

TEST_F(WizardTest, ADatabaseThatCannotBeReadEndsInTheErrorReport) {
  pack({});
  const std::string empty = program.read("Data.DBF");
  const Damage cases[] = {{"no file", "", 0}, {"no records", empty, 0}, {"another format", "PK\3\4 zip", 63}};
  for (const Damage& damage : cases) {
    SCOPED_TRACE(damage.name);
    fs::remove(program.native("Data.DBF"));
    if (!damage.table.empty()) program.write("Data.DBF", damage.table);
    messages.shown.clear();
    chooser = {};
    processEnd.ends = 0;
    restore();
    ASSERT_EQ(messages.shown.size(), 1u);
    const Message& shown = messages.shown[0];
    EXPECT_TRUE(shown.text.startsWith("A Error has been detected, \r\nError Name: "));
    const QString ending = damage.helpTopic != 0
                               ? "\r\n\r\nClick 'Help' to get help on this error."
                               : "\r\n\r\nThere is not any help on this error,\r\nSend the 'Error Name' to "
                                 "support@ferncastle.example to get help on this error.";
    EXPECT_TRUE(shown.text.endsWith(
        ending + "\r\nCommand And Conquer Generals Korvane will close when you click 'OK'"));
    EXPECT_EQ(shown.helpTopic, damage.helpTopic);
    EXPECT_EQ(shown.systemModal, damage.helpTopic != 0);
    EXPECT_EQ(processEnd.ends, 1);
  }
}

TEST_F(WizardTest, AClickOnTheDatabaseTellsItsPositionAndItsChangesReachTheDisk) {
  restore();
  auto* db = static_cast<DBCtlView*>(wizard->findChild<QWidget*>("DB"));
  db->database().SetRecord(0);
  db->database().SetData(1, "changed");
  db->resize(500, 500);
  QTest::mouseClick(db, Qt::LeftButton);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, "0");
  EXPECT_LT(db->width(), 100);
  DBCtl again;
  again.LoadDatabase(program.path(), "Data");
  EXPECT_EQ(again.GetData(1), "changed");
}

TEST_F(WizardTest, TheFolderTreeIsMadeOnceInARunAndFillsItsBox) {
  open();
  EXPECT_EQ(chooser.SelectedFolder, QString(1, QChar::Null));
  auto* tree = wizard->findChild<QTreeView*>("BrowseTree");
  click(next);
  wizard->resize(wizard->size() + QSize(100, 100));
  EXPECT_EQ(tree->size(), wizard->PicBrouse()->size());
  chooser.CloseBrowse();
  chooser.CloseBrowse();
  QCoreApplication::sendPostedEvents(tree, QEvent::DeferredDelete);
  chooser.BrowseForFolder({});
  EXPECT_EQ(wizard->findChild<QTreeView*>("BrowseTree"), nullptr);
}

}  // namespace
}  // namespace korvane
