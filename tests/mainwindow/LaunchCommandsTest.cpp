// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMenu>
#include <QToolButton>

#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class LaunchCommandsTest : public MainWindow {
 protected:
  void trigger(const char* action) { get<QAction>(action).trigger(); }
  void dropDown(const char* button, const QString& entry) {
    for (QAction* action : get<QToolButton>(button).menu()->actions()) {
      if (action->text() == entry) action->trigger();
    }
  }
  QString folder(const char* relative) const { return game.qpath() + relative; }
};

TEST_F(LaunchCommandsTest, MenuEntriesStartWhatTheyName) {
  open();
  struct Case {
    const char *action, *call, *run;
  };
  const std::string gameRun = game.path() + "\\generals.exe";
  const std::string gameFolder = game.path();
  const Case cases[] = {
      {"MnuRun", "", gameRun.c_str()},
      {"MnuOpt", "options", ""},
      {"MnuWe", "weapons", ""},
      {"MnuArmour", "armours", ""},
      {"MnuCmdSetEditor", "command sets", ""},
      {"MnuCmdBtnEditor", "command buttons", ""},
      {"MnuHelp_Help", "", "C:\\Korvane\\KORVANE.HLP"},
      {"MnuOpenGenFol", "", gameFolder.c_str()},
      {"MnuOpenKorvaneFol", "", "C:\\Korvane"},
      {"MnuHelp_About", "about", ""},
  };
  for (const Case& c : cases) {
    shell.runs.clear();
    trigger(c.action);
    EXPECT_EQ(launcher.takeCalls().join(' '), c.call) << c.action;
    EXPECT_EQ(shell.runs.empty() ? QString() : shell.runs[0].first, c.run) << c.action;
  }
  trigger("MnuHelp_HelpCont");
  EXPECT_EQ(help.topics, std::vector<int>{0});
  for (const char* name : {"MnuNewUnit", "MnuNewBuilding", "MnuBackup", "MnuRestore"}) {
    EXPECT_FALSE(get<QAction>(name).isEnabled()) << name;
  }
}

TEST_F(LaunchCommandsTest, ShortcutsHoldInAllOfTheWindow) {
  open();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTest::keyClick(&get<QTreeView>("TVMenu"), Qt::Key_F9);
  EXPECT_EQ(launcher.takeCalls(), QStringList{"options"});
  QTest::keyClick(&get<QTreeView>("TVMenu"), Qt::Key_F1);
  QTest::keyClick(&get<QTreeView>("TVMenu"), Qt::Key_F2);
  EXPECT_EQ(shell.runs.size(), 2U);
  QTest::keyClick(&get<QTreeView>("TVMenu"), Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(help.topics.size(), 1U);
  auto& tabs = get<QTabWidget>("F_Tab");
  const std::pair<Qt::KeyboardModifiers, int> steps[] = {{Qt::ControlModifier, 0},
                                                         {Qt::ControlModifier | Qt::ShiftModifier, 6}};
  tabs.setCurrentIndex(6);
  for (const auto& [modifiers, tab] : steps) {
    QTest::keyClick(&get<QTreeView>("TVMenu"), Qt::Key_Tab, modifiers);
    EXPECT_EQ(tabs.currentIndex(), tab);
  }
  get<QToolButton>("W95MBX01").click();
  EXPECT_EQ(process.ends, 1);
}

TEST_F(LaunchCommandsTest, FilesOpenFromTheirFolderOrAreSaidToBeMissing) {
  open();
  trigger("MnuFileEdit0");
  EXPECT_EQ(launcher.takeCalls(), QStringList{"manual file"});
  EXPECT_EQ(launcher.requests.back().ManualEditFile, folder("\\Data\\INI\\Object\\FactionUnit.ini"));
  EXPECT_EQ(launcher.requests.back().ManualEditPartial, 0);
  dropDown("DISK12", "Armor.ini");
  EXPECT_EQ(launcher.takeCalls(), QStringList{"manual file"});
  EXPECT_EQ(launcher.requests.back().ManualEditFile, folder("\\Data\\INI\\armor.ini"));
  trigger("MnuFileEdit16");
  EXPECT_TRUE(launcher.takeCalls().isEmpty());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text,
            "The following files do not exist: \r\n" + folder("\\Data\\INI\\CommandSet.ini"));
}

TEST_F(LaunchCommandsTest, ToolbarButtonsStartWhatTheyName) {
  open();
  for (const char* button : {"DISK12", "WRENCH"}) get<QToolButton>(button).click();
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[1].text, "Click on the 'Down Arrow' next to this button!");
  EXPECT_EQ(messages.shown[1].title, "For your information,");
  for (const char* button : {"New", "Save"}) get<QToolButton>(button).click();
  dropDown("New", "Unit");
  EXPECT_TRUE(launcher.takeCalls().isEmpty());
  for (const char* entry :
       {"Weapons Editor", "Armour Editor", "Command Button Editor", "Command Set Editor"}) {
    dropDown("WRENCH", entry);
  }
  EXPECT_EQ(launcher.takeCalls(), (QStringList{"weapons", "armours", "command buttons", "command sets"}));
  get<QToolButton>("MISC01").click();
  EXPECT_EQ(shell.runs.size(), 1U);
}

TEST_F(LaunchCommandsTest, ButtonsHandTheSelectedObjectToTheManualEditor) {
  open();
  for (const char* button : {"CmdME_FINI", "Btn_LEdit", "Btn_FEdit"}) press(button);  // nothing selected
  EXPECT_TRUE(launcher.takeCalls().isEmpty());
  click("Jeep");
  EXPECT_TRUE(QTest::qWaitFor(
      [this] { return get<QPushButton>("CmdME_FINI").text() == "Manual Edit FactionUnit.ini"; }));
  launcher.takeCalls();
  const struct {
    const char* button;
    int partial;
    const char* file;
    std::string_view text;  // its beginning
  } kCases[] = {
      {"CmdME_FINI", 0, "\\Data\\INI\\Object\\FactionUnit.ini", ""},
      {"Btn_LEdit", 1, "\\Data\\INI\\Locomotor.ini", "Locomotor Wheels\r\n"},
      {"Btn_FEdit", 1, "\\Data\\INI\\Object\\FactionUnit.ini", "Object Jeep\r\n"},
  };
  for (const auto& c : kCases) {
    press(c.button);
    const ManualEditRequest request = launcher.requests.back();
    EXPECT_EQ(request.ManualEditPartial, c.partial) << c.button;
    EXPECT_EQ(request.ManualEditFile, folder(c.file)) << c.button;
    EXPECT_TRUE(request.text.value_or("").starts_with(c.text)) << *request.text;
  }
  EXPECT_EQ(launcher.takeCalls(), (QStringList{"manual file", "manual text", "manual text"}));
}

TEST_F(LaunchCommandsTest, EditorsOpenAtTheFieldsOwnEntry) {
  open();
  click("Jeep");
  EXPECT_EQ(launcher.takeCalls().last(), "select armour Plate");
  press("Command2");
  press("PWeaponEdit");
  press("SWeaponEdit");
  EXPECT_EQ(launcher.takeCalls(), (QStringList{"select armour Plate", "armours", "select weapon Gun",
                                               "weapons", "select weapon Rocket", "weapons"}));
}

}  // namespace
}  // namespace korvane
