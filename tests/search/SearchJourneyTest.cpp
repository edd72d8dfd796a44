// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "controls/InPlaceTable.h"
#include "startup/Program.h"
#include "stock/StockFiles.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

// The way of a user through the program's windows.
class SearchJourney : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.ini("CommandSet.ini", "CommandSet TankSet\n  1 = Command_Stop\nEnd\n");
    game.ini("CommandButton.ini", "CommandButton Command_Go\nEnd\nCommandButton Command_Stop\nEnd\n");
  }

  template <typename Type>
  static Type& part(const char* window, const char* name) {
    return *WindowNamed(window)->findChild<Type*>(name);
  }
  static bool waitForTitle(const char* window, const QString& title) {
    const auto shown = [&] {
      return VisibleWindow(window) == nullptr ? QString() : VisibleWindow(window)->windowTitle();
    };
    const bool seen = QTest::qWaitFor([&] { return shown() == title; });
    EXPECT_EQ(shown().toStdString(), title.toStdString());
    return seen;
  }
  static void press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    control.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(control.window()));
    control.setFocus();
    QTest::keyClick(&control, key, modifiers);
  }
  // The names are read in a worker: presses again until the key has something to go by.
  static void pressUntil(QWidget& control, Qt::Key key, const char* window) {
    EXPECT_TRUE(QTest::qWaitFor([&] {
      if (VisibleWindow(window) == nullptr) press(control, key);
      return VisibleWindow(window) != nullptr;
    }));
  }

  // Of what the manual editor shows, with this answer.
  void extract(const QString& answer) {
    ASSERT_TRUE(part<QAction>("FrmManEdit", "extractText").isVisible());
    messages.answers = {answer};
    part<QAction>("FrmManEdit", "extractText").trigger();
  }

  Program program{services, folders, {}};
};

TEST_F(SearchJourney, FromASlotOfACommandSetToItsButtonAndToWhatUsesIt) {
  ASSERT_TRUE(program.showEntry(TableEditorId::commandSets, "TankSet"));
  auto& rows = part<InPlaceTable>("FrmCmdSet", "LVEdit");
  rows.setCurrentIndex(rows.model()->index(0, 1));
  pressUntil(rows, Qt::Key_F4, "FrmCmdBtn");
  ASSERT_TRUE(waitForTitle("FrmCmdBtn", "Command_Stop - Command Button Editor"));
  press(part<QListView>("FrmCmdBtn", "LstWPN"), Qt::Key_F4, Qt::ShiftModifier);
  ASSERT_TRUE(waitForTitle("UsesWindow", "1 use of 'Command_Stop'"));
  auto& tree = part<QTreeView>("UsesWindow", "foundTree");
  while (tree.indexBelow(tree.currentIndex()).isValid()) press(tree, Qt::Key_Down);
  press(tree, Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("CommandSet.ini"); }));
  EXPECT_EQ(part<QLabel>("FrmManEdit", "Panel1").text(), "Line 2 of 4");
}

TEST_F(SearchJourney, ATextInAnArchiveIsFoundAndShownButNeverSaved) {
  game.write("INI.big", ArchiveBytes({{"Data\\INI\\Packed.ini", "Science SCIENCE_Packed\r\nEnd\r\n"}}));
  program.showArmourEditor();
  press(part<QListView>("FrmArmour", "LstWPN"), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_NE(VisibleWindow("UsesWindow"), nullptr);
  press(part<QLineEdit>("UsesWindow", "soughtText"), Qt::Key_S);
  part<QLineEdit>("UsesWindow", "soughtText").setText("science_packed");
  press(part<QLineEdit>("UsesWindow", "soughtText"), Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("UsesWindow", "1 line with 'science_packed'"));
  auto& tree = part<QTreeView>("UsesWindow", "foundTree");
  tree.setCurrentIndex(tree.model()->index(0, 0, tree.model()->index(0, 0)));
  press(tree, Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  EXPECT_TRUE(QTest::qWaitFor(
      [] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("Packed.ini (from INI.big)"); }));
  QTest::keyClicks(part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy(), "x");
  EXPECT_EQ(program.fileWithUnsavedText(), "");
  part<QAction>("FrmManEdit", "MnuSave").trigger();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "This text is in INI.big; extract it first.");
  EXPECT_FALSE(std::filesystem::exists(game.native("Data/INI/Packed.ini")));
  extract("Cancel");
  EXPECT_FALSE(std::filesystem::exists(game.native("Data/INI/Packed.ini")));
  extract("Extract");
  EXPECT_EQ(game.read("Data/INI/Packed.ini"), "Science SCIENCE_Packed\r\nEnd\r\n");
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("Packed.ini"); }));
  EXPECT_FALSE(part<QAction>("FrmManEdit", "extractText").isVisible());
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\CommandSet.ini"});
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("CommandSet.ini"); }));
  QTest::keyClicks(part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy(), "; ");
  part<QAction>("FrmManEdit", "MnuSave").trigger();
  EXPECT_TRUE(game.read("Data/INI/CommandSet.ini").starts_with("; CommandSet"));
}

}  // namespace
}  // namespace korvane
