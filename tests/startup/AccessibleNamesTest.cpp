// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFile>
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

// With every window open.
class AccessibleNamesTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
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
  }

  Program program{services, folders, {}};
};

TEST_F(AccessibleNamesTest, EveryControlOfTheKeyboardHasOne) {
  EXPECT_EQ(Nameless().join('\n').toStdString(), "");
}

TEST_F(AccessibleNamesTest, EveryShortcutStandsOnTheHelpPageOfTheKeys) {
  QFile file(KORVANE_KEYBOARD_PAGE);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString page = QString::fromUtf8(file.readAll());
  QStringList missing;
  int shortcuts = 0;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    for (const QAction* action : window->findChildren<QAction*>()) {
      for (const QKeySequence& keys : action->shortcuts()) {
        ++shortcuts;
        if (!page.contains('`' + keys.toString() + '`'))
          missing += window->objectName() + ": " + action->text() + ' ' + keys.toString();
      }
    }
  }
  EXPECT_GT(shortcuts, 50);
  EXPECT_EQ(missing.join('\n').toStdString(), "");
}

}  // namespace
}  // namespace korvane
