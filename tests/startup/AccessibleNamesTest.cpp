// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTabBar>
#include <QTest>

#include "mainwindow/FrmEdit.h"
#include "startup/Program.h"
#include "support/TestDesk.h"

namespace korvane {
namespace {

// The keyboard gets to it; not to a row of tabs without any.
bool IsReached(const QWidget& control) {
  const auto* tabs = qobject_cast<const QTabBar*>(&control);
  return (control.focusPolicy() & Qt::TabFocus) != 0 && control.focusProxy() == nullptr &&
         !control.isWindow() && control.window()->windowType() != Qt::Popup &&
         (tabs == nullptr || tabs->count() > 0);
}

// The controls that the keyboard reaches and that a screen reader could not name.
QStringList Nameless() {
  QStringList found;
  for (QWidget* control : QApplication::allWidgets()) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
    if (!IsReached(*control) || !reader->text(QAccessible::Name).isEmpty()) continue;
    found += control->window()->objectName() + '/' + control->objectName() + " (" +
             control->metaObject()->className() + ')';
  }
  return found;
}

class AccessibleNamesTest : public testing::Test, protected TestDesk {};

TEST_F(AccessibleNamesTest, EveryControlOfTheKeyboardHasOne) {
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  Program program(services, folders, {});
  program.mainWindow().show();
  program.showWeaponEditor();
  program.showArmourEditor();
  program.showCommandSetEditor();
  program.showCommandButtonEditor();
  program.showManualEditor({.text = "Object Jeep\r\nEnd\r\n"});
  program.search(SearchCommand::problems, program.mainWindow());
  program.showOptions();
  program.showAbout();
  program.search(SearchCommand::files, program.mainWindow());
  QTest::qWait(10);
  EXPECT_EQ(Nameless().join('\n').toStdString(), "");
}

}  // namespace
}  // namespace korvane
