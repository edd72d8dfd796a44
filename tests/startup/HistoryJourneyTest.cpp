// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>

#include "app/ManualEditRequest.h"
#include "controls/NoticeBar.h"
#include "history/DataComparison.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/FrmManEdit.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedJournal.h"
#include "startup/Program.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

const std::string kFirst = GameFolder::CrLf("Weapon Gun\n  Damage = 1\nEnd\n");

// From the manual editor to the history of its file and back.
class HistoryJourney : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override { game.write("Data/INI/Weapon.ini", kFirst); }

  void open() {
    program->showManualEditor({path});
    ASSERT_TRUE(QTest::qWaitFor([] {
      const auto* editor = qobject_cast<FrmManEdit*>(VisibleWindow("FrmManEdit"));
      return editor != nullptr && editor->ManEditInitDone();
    }));
  }
  static QWidget& editor() { return *WindowNamed("FrmManEdit"); }
  static IniTextEdit& text() { return *editor().findChild<IniTextEdit*>("TxtManEdit"); }
  static void trigger(const char* action) { editor().findChild<QAction*>(action)->trigger(); }
  static void typeAndSave(const QString& typed) {
    QTest::keyClicks(text().focusProxy(), typed);
    trigger("MnuSave");
  }
  std::string saved() const { return game.read("Data/INI/Weapon.ini"); }
  static QWidget& history() { return *VisibleWindow("HistoryWindow"); }
  static void waitForHistory() {
    ASSERT_TRUE(QTest::qWaitFor([] {
      const QWidget* window = VisibleWindow("HistoryWindow");
      return window != nullptr && window->findChild<QPushButton*>("cancel")->isHidden();
    }));
  }
  static QTreeWidget& list(const char* name) { return *history().findChild<QTreeWidget*>(name); }
  void restore() {
    messages.answers = {"Restore"};
    history().findChild<QPushButton*>("restore")->click();
  }

  const QString path = game.qpath() + "\\Data\\INI\\Weapon.ini";
  std::unique_ptr<Program> program = std::make_unique<Program>(services, folders, QString());
};

TEST_F(HistoryJourney, SaveSaveAndRestoreTheFirst) {
  open();
  typeAndSave("; one ");
  typeAndSave("; two ");
  trigger("showHistory");
  waitForHistory();
  ASSERT_EQ(list("versions").topLevelItemCount(), 3) << "the present text, and one for each save";
  list("versions").setCurrentItem(list("versions").topLevelItem(2));
  waitForHistory();
  restore();
  EXPECT_EQ(text().fileBytes().bytes, kFirst);
  EXPECT_EQ(saved(), "; one ; two " + kFirst) << "the user saves";
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, "; one ; two " + kFirst) << "one step to undo";
  restore();
  trigger("MnuSave");
  EXPECT_EQ(saved(), kFirst);
}

TEST_F(HistoryJourney, AVersionComesBackInTheTabOfItsOwnFile) {
  open();
  typeAndSave("; one ");
  program->showManualEditor({game.qpath() + "\\Data\\INI\\Weapon.ini", 1, kFirst});
  game.write("Data/INI/Armor.ini", kFirst);
  program->showManualEditor({game.qpath() + "\\Data\\INI\\Armor.ini"});
  const auto& tabs = *editor().findChild<QTabBar*>("textTabs");
  ASSERT_TRUE(QTest::qWaitFor([&] { return tabs.count() == 3; }));
  editor().findChild<QTabBar*>("textTabs")->setCurrentIndex(0);
  trigger("showHistory");
  waitForHistory();
  list("versions").setCurrentItem(list("versions").topLevelItem(1));
  waitForHistory();
  trigger("previousTab");
  EXPECT_EQ(tabs.currentIndex(), 2);
  restore();
  EXPECT_EQ(tabs.currentIndex(), 0);
  EXPECT_EQ(text().fileBytes().bytes, kFirst);
  trigger("previousTab");
  EXPECT_EQ(text().fileBytes().bytes, kFirst);
  EXPECT_FALSE(text().isModified()) << "another file";
}

TEST_F(HistoryJourney, TakeOneChangeBack) {
  open();
  QTest::keyClick(text().focusProxy(), Qt::Key_End, Qt::ControlModifier);
  typeAndSave("; end ");
  QTest::keyClick(text().focusProxy(), Qt::Key_Home, Qt::ControlModifier);
  typeAndSave("; start ");
  trigger("showHistory");
  waitForHistory();
  list("versions").setCurrentItem(list("versions").topLevelItem(2));
  waitForHistory();
  EXPECT_EQ(list("changes").topLevelItemCount(), 2);
  history().findChild<QPushButton*>("takeBack")->click();
  EXPECT_EQ(text().fileBytes().bytes, kFirst + "; end ");
}

TEST_F(HistoryJourney, APartShowsItsOwnVersionAmongThoseOfItsFile) {
  const FileWriter files;
  const KeptVersions versions(files);
  const std::string gun = "Weapon Gun\r\n  Damage = 7\r\nEnd\r\n";
  for (const std::string& part : {gun, std::string("Weapon Bow\r\nEnd\r\n")}) {
    ASSERT_EQ(versions.keepUnsaved({.path = path, .part = true, .utf8 = part}), "");
  }
  ASSERT_EQ(versions.keepUnsaved({.path = path, .utf8 = gun}), "");
  program->showManualEditor({.ManualEditFile = path, .ManualEditPartial = 1, .text = kFirst});
  ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("FrmManEdit") != nullptr; }));
  trigger("showHistory");
  waitForHistory();
  ASSERT_EQ(list("versions").topLevelItemCount(), 4);
  EXPECT_EQ(list("versions").currentItem(), list("versions").topLevelItem(3)) << "the one of Gun alone";
}

TEST_F(HistoryJourney, AComparisonMarksTheTree) {
  const GameFolder original;
  original.ini("Weapon.ini", kFirst);
  DataComparison(services).setOriginal(original.qpath());
  game.objects("FactionUnit.ini", "Object Jeep\nEnd\n");
  FrmEdit& main = program->mainWindow();
  main.show();
  auto& filter = *main.findChild<QAction*>("onlyChanged");
  ASSERT_FALSE(filter.isEnabled());
  program->search(SearchCommand::original, main);
  EXPECT_TRUE(QTest::qWaitFor([&] { return filter.isEnabled(); }));
}

TEST_F(HistoryJourney, CrashAndRestore) {
  {
    const FileWriter files;
    const KeptVersions versions(files);
    UnsavedJournal journal(versions);
    ASSERT_EQ(journal.note({.path = path, .utf8 = "Weapon Gun\r\n  Damage = \xE4\xB8\xAD\r\nEnd\r\n"}), "");
  }
  program = std::make_unique<Program>(services, folders, QString());
  program->mainWindow().show();
  const auto* bar = program->mainWindow().findChild<NoticeBar*>("NoticeBar");
  ASSERT_EQ(bar->sentences().size(), 1);
  const QRegularExpression sentence(
      R"(^Text of Weapon\.ini that was not saved on \d+ [A-Z][a-z]{2} \d\d:\d\d was kept\. Show$)");
  EXPECT_TRUE(sentence.match(bar->sentences()[0]).hasMatch()) << bar->sentences()[0].toStdString();
  auto* notice = bar->findChild<QLabel*>("Notice");
  Q_EMIT notice->linkActivated(QRegularExpression("href=\"(\\d+)\"").match(notice->text()).captured(1));
  waitForHistory();
  EXPECT_EQ(list("versions").currentItem()->text(1), "Lost in a crash");
  restore();
  ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("FrmManEdit") != nullptr; }));
  EXPECT_EQ(text().utf8(), "Weapon Gun\r\n  Damage = \xE4\xB8\xAD\r\nEnd\r\n");
  EXPECT_EQ(saved(), kFirst);
}

}  // namespace
}  // namespace korvane
