// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

#include "about/HelpDesk.h"
#include "controls/KeyboardOutline.h"
#include "controls/MenuKey.h"
#include "controls/NoticeBar.h"
#include "controls/ScreenReaders.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/IniTextEdit.h"
#include "startup/Program.h"
#include "startup/WindowWalk.h"
#include "stock/StockTable.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

constexpr const char* kText = "Object Jeep\n  BuildCost = 100\n  Scale = 1..5\nEnd\n";

class Desk : protected TestDesk {
 public:
  Desk() {
    folders.program = own.qpath();
    StockTable table(own.native("Data"));
    table.add("Data\\INI\\Armor.ini", "Armor Plate\r\nEnd\r\n");
    table.commit();
    game.ini("Weapon.ini", "Weapon Gun\n  PrimaryDamage = 10\nEnd\nWeapon Bow\nEnd\n");
    game.ini("Armor.ini", "Armor TankArmor\n  Armor = DEFAULT 100%\nEnd\n");
    game.ini("CommandSet.ini", "CommandSet Tank\n  1 = Btn_Stop\nEnd\n");
    game.ini("CommandButton.ini", "CommandButton Btn_Stop\n  Command = STOP\nEnd\n");
    game.objects("FactionUnit.ini", kText);
    program.mainWindow().show();
  }

  // A window, or what covers a part of one.
  static QWidget* Visible(const char* name) {
    if (QWidget* window = VisibleWindow(name)) return window;
    const QWidgetList all = QApplication::allWidgets();
    const auto found = std::ranges::find_if(
        all, [name](const QWidget* widget) { return widget->objectName() == name && widget->isVisible(); });
    return found == all.end() ? nullptr : *found;
  }
  static QWidget& shown(const char* name) {
    EXPECT_TRUE(QTest::qWaitFor([name] { return Visible(name) != nullptr; })) << name;
    return *Visible(name);
  }
  template <typename Control>
  static Control& control(const char* window, const char* name) {
    auto* found = shown(window).findChild<Control*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  static void trigger(const char* window, const char* action) { control<QAction>(window, action).trigger(); }
  static void press(const char* window, const char* button) {
    control<QAbstractButton>(window, button).click();
  }
  static void turnTo(const char* window, const char* tabs, int tab) {
    control<QTabWidget>(window, tabs).setCurrentIndex(tab);
  }
  void search(SearchCommand command) { program.search(command, program.mainWindow()); }
  void openText() {
    program.showManualEditor({.text = GameFolder::CrLf(kText)});
    shown("FrmManEdit");
    QTest::qWait(20);
  }

  GameFolder own;
  HelpDesk realHelp{KORVANE_HELP_FILE};
  Program program{services, folders, "-Reinstall"};
};

struct Stop {
  const char* what;
  const char* window;
  void (*open)(Desk&);
  bool closedByEscape = true;
};

template <int tab>
void TurnMainTo(Desk& desk) {
  desk.turnTo("FrmEdit", "F_Tab", tab);
}

template <int tab>
void TurnOptionsTo(Desk& desk) {
  desk.program.showOptions();
  desk.turnTo("FrmOpt", "SSTab1", tab);
}

template <int steps>
void TurnWizardTo(Desk& desk) {
  desk.program.StartProgram();  // without a game folder
  for (int i = 0; i < steps; ++i) desk.press("frmWizard", "cmdNav3");
}

template <SearchCommand command>
void Search(Desk& desk) {
  desk.search(command);
}

void TriggerInText(Desk& desk, const char* action) {
  desk.openText();
  desk.trigger("FrmManEdit", action);
}

constexpr Stop kStops[] = {
    {"handling", "FrmEdit", TurnMainTo<0>, false},
    {"health", "FrmEdit", TurnMainTo<1>, false},
    {"weapons", "FrmEdit", TurnMainTo<2>, false},
    {"advanced", "FrmEdit", TurnMainTo<3>, false},
    {"cost", "FrmEdit", TurnMainTo<4>, false},
    {"information", "FrmEdit", TurnMainTo<5>, false},
    {"other settings", "FrmEdit", TurnMainTo<6>, false},
    {"find anything", "FindAnything", Search<SearchCommand::anything>},
    {"uses", "UsesWindow", Search<SearchCommand::files>},
    {"problems", "ProblemsWindow", Search<SearchCommand::problems>},
    {"further data", "FurtherDataDialog",
     [](Desk& desk) {
       desk.search(SearchCommand::problems);
       desk.press("ProblemsWindow", "furtherData");
     }},
    {"history", "HistoryWindow", Search<SearchCommand::history>},
    {"forget", "ForgetDialog",
     [](Desk& desk) {
       desk.search(SearchCommand::history);
       desk.press("HistoryWindow", "forgetVersions");
     }},
    {"compare", "CompareWindow", Search<SearchCommand::original>},
    {"manual editor", "FrmManEdit", [](Desk& desk) { TriggerInText(desk, "MnuFind"); }, false},
    {"blocks", "FrmManEdit",
     [](Desk& desk) {
       TriggerInText(desk, "showBlocks");
       desk.trigger("FrmManEdit", "MnuFind");
     },
     false},
    {"replace", "FrmReplace", [](Desk& desk) { TriggerInText(desk, "MnuReplace"); }},
    {"go to line", "JumpPopup", [](Desk& desk) { TriggerInText(desk, "goToLine"); }},
    {"go to block", "JumpPopup", [](Desk& desk) { TriggerInText(desk, "goToBlock"); }},
    {"weapon editor", "FrmWE", [](Desk& desk) { desk.program.showWeaponEditor(); }, false},
    {"armour editor", "FrmArmour", [](Desk& desk) { desk.program.showArmourEditor(); }, false},
    {"damage types", "FrmAmrPar",
     [](Desk& desk) {
       desk.program.showArmourEditor();
       desk.trigger("FrmArmour", "Test");
     }},
    {"command set editor", "FrmCmdSet", [](Desk& desk) { desk.program.showCommandSetEditor(); }, false},
    {"command set format", "CmdSetFormat",
     [](Desk& desk) {
       desk.program.showCommandSetEditor();
       desk.trigger("FrmCmdSet", "MnuCmdFormat");
     }},
    {"command button editor", "FrmCmdBtn", [](Desk& desk) { desk.program.showCommandButtonEditor(); }, false},
    {"general options", "FrmOpt", TurnOptionsTo<0>},
    {"menu options", "FrmOpt", TurnOptionsTo<1>},
    {"manual editor options", "FrmOpt", TurnOptionsTo<2>},
    {"about", "frmAbout", [](Desk& desk) { desk.program.showAbout(); }},
    {"extras", "FrmFun",
     [](Desk& desk) {
       desk.program.showAbout();
       desk.trigger("frmAbout", "MnuFun");
     }},
    {"help", "FrmHelp", [](Desk& desk) { desk.realHelp.showContents(); }},
    {"introduction", "frmWizard", TurnWizardTo<0>, false},
    {"folder", "frmWizard", TurnWizardTo<1>, false},
};

class AccessibilityTest : public testing::TestWithParam<Stop> {
 protected:
  static void SetUpTestSuite() {
    KeyboardOutline::install();
    InstallWindowRoles();
  }
  void SetUp() override {
    GetParam().open(desk);
    window = &desk.shown(GetParam().window);
    for (NoticeBar* bar : window->findChildren<NoticeBar*>())
      bar->tell(99, {Notice("Something happened. ").link("Show", [] {}).button("Undo", [] {})});
    QApplication::setActiveWindow(window->window());
    QTest::qWait(10);
  }
  static std::string Text(const QStringList& faults) { return faults.join('\n').toStdString(); }

  Desk desk;
  QWidget* window = nullptr;
};

TEST_P(AccessibilityTest, NeedsNeitherMouseNorEyes) {
  EXPECT_EQ(Text(Nameless(*window)), "");
  EXPECT_EQ(Text(ClashingMnemonics(*window)), "");
  EXPECT_EQ(Text(FaultsByTab(*window)), "");
  EXPECT_EQ(Text(MenusOfTheMouseOnly(*window)), "");
}

TEST_P(AccessibilityTest, EscapeClosesASmallWindow) {
  const QPointer<QWidget> shown(window);
  QWidget* at = window->window()->focusWidget();
  QTest::keyClick(at == nullptr ? window : at, Qt::Key_Escape);
  EXPECT_EQ(shown.isNull() || !shown->isVisible(), GetParam().closedByEscape);
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityTest, testing::ValuesIn(kStops),
                         [](const testing::TestParamInfo<Stop>& stop) {
                           return QString(stop.param.what).replace(' ', '_').toStdString();
                         });

// With every window open.
class AllWindowsTest : public testing::Test, protected TestDesk {
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

#ifndef Q_OS_WIN
TEST_F(AllWindowsTest, ShiftF10IsAMenuKey) {
  MenuKey::install();
  QWidget& main = program.mainWindow();
  QApplication::setActiveWindow(&main);
  auto* field = main.findChild<QLineEdit*>("findAnythingField");
  field->setFocus();
  ASSERT_TRUE(QTest::qWaitFor([field] { return QApplication::focusWidget() == field; }));
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(field, Qt::Key_F10, Qt::ShiftModifier);
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  menu->close();
}
#endif

TEST_F(AllWindowsTest, EveryShortcutStandsOnTheHelpPageOfTheKeys) {
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
