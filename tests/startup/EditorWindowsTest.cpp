// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include "controls/InPlaceTable.h"
#include "mainwindow/FrmEdit.h"
#include "startup/Program.h"
#include "support/TestDesk.h"

namespace korvane {
namespace {

// How the table editors are wired to the main window and to their own dialogs.
class EditorWindowsTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    std::string armours = "Armor human\nEnd\nArmor TankArmor\nEnd\nArmor TankArmorHeavy\nEnd\n";
    for (int line = 0; line < 200; ++line) armours += "; long enough for events to run\n";
    game.ini("Armor.ini", armours);
  }

  static QWidget* window(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == name) return widget;
    }
    return nullptr;
  }
  static int armours() { return window("FrmArmour")->findChild<QListView*>()->model()->rowCount(); }
  static QString selectedArmour() {
    const auto indexes = window("FrmArmour")->findChild<QListView*>()->selectionModel()->selectedIndexes();
    return indexes.isEmpty() ? QString("none") : indexes.first().data().toString();
  }
  void chooseArmour(const char* name) {
    program.mainWindow().findChild<QComboBox*>("CboArmour")->setEditText(name);
  }
  static void closeAndWait(const char* name) {
    window(name)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  Program program{services, {}};
};

TEST_F(EditorWindowsTest, TheArmourEditorFollowsTheArmourListWhetherItIsOpenOrNot) {
  chooseArmour("tankarmor");
  program.mainWindow().findChild<QPushButton*>("Command2")->click();
  EXPECT_TRUE(window("FrmArmour")->isVisible());
  EXPECT_EQ(selectedArmour(), "TankArmor");
  chooseArmour("TankArmorHeavy");
  EXPECT_EQ(selectedArmour(), "TankArmorHeavy");
  closeAndWait("FrmArmour");
  chooseArmour("Human");
  program.showArmourEditor();
  EXPECT_EQ(selectedArmour(), "human");
  chooseArmour("Tank");
  EXPECT_EQ(selectedArmour(), "none");
}

TEST_F(EditorWindowsTest, ADamageTypeIsAddedEvenWhenTheArmourEditorHasBeenClosed) {
  program.showArmourEditor();
  window("FrmArmour")->findChild<QAction*>("Test")->trigger();
  closeAndWait("FrmArmour");
  window("FrmAmrPar")->findChild<InPlaceTable*>("LV")->selectRow(4);
  window("FrmAmrPar")->findChild<QPushButton*>("CmdOK")->click();
  ASSERT_NE(window("FrmArmour"), nullptr);
  EXPECT_FALSE(window("FrmArmour")->isVisible());
  EXPECT_EQ(window("FrmArmour")->findChild<InPlaceTable*>("LVEdit")->row(0).caption, "GATTLING");
}

TEST_F(EditorWindowsTest, AnEditorClosedWhileItReadsItsListIsMadeAnewByTheNextUse) {
  program.mainWindow();
  QTest::qSleep(10);  // longer than a read waits before it lets events run
  yield.onTurn = [this] {
    program.showArmourEditor();
    window("FrmArmour")->close();
  };
  program.showArmourEditor();
  EXPECT_FALSE(yield.onTurn) << "no event ran while the list was read";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window("FrmArmour"), nullptr);
  program.showArmourEditor();
  EXPECT_EQ(armours(), 3);
}

}  // namespace
}  // namespace korvane
