// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainCommands.h"

#include <QMenu>
#include <QMenuBar>

#include <array>

#include "app/Commands.h"
#include "mainwindow/FileEntries.h"
#include "mainwindow/LaunchCommands.h"

namespace korvane {

namespace {

using Launch = Command<LaunchCommands>;

constexpr std::array kCommands = {
    Launch{"MnuNewUnit", "&Unit..."},
    Launch{"MnuNewBuilding", "&Building..."},
    Launch{"MnuBackup", "&Backup Settings..."},
    Launch{"MnuRestore", "Re&store Settings..."},
    Launch{"MnuRun", "&Run 'Command And Conquer Generals'", &LaunchCommands::runGame, "F2"},
    Launch{"MnuOpt", "&Options", &LaunchCommands::showOptions, "F9"},
    Launch{"MnuWe", "&Weapons Editor", &LaunchCommands::showWeaponEditor},
    Launch{"MnuArmour", "&Armour Editor", &LaunchCommands::showArmourEditor},
    Launch{"MnuCmdSetEditor", "Command &Set Editor", &LaunchCommands::showCommandSetEditor},
    Launch{"MnuCmdBtnEditor", "Command &Button Editor", &LaunchCommands::showCommandButtonEditor},
    Launch{"findAnything", "&Find Anything", &LaunchCommands::findAnything, "Ctrl+P"},
    Launch{"goToDefinition", "Go to &Definition", &LaunchCommands::goToDefinition, "F4"},
    Launch{"findUses", "Find &Uses", &LaunchCommands::findUses, "Shift+F4"},
    Launch{"namesUsed", "&Names Used by This Block", &LaunchCommands::listNamesUsed},
    Launch{"findInFiles", "Find &in Files...", &LaunchCommands::findInFiles, "Ctrl+Shift+F"},
    Launch{"checkData", "&Check the Data", &LaunchCommands::checkData, "Ctrl+Shift+M"},
    Launch{"showHistory", "&History...", &LaunchCommands::showHistory},
    Launch{"compareOriginal", "Compare with the Ori&ginal...", &LaunchCommands::compareWithOriginal},
    Launch{"goBack", "&Back", &LaunchCommands::goBack, "Alt+Left"},
    Launch{"goForward", "F&orward", &LaunchCommands::goForward, "Alt+Right"},
    Launch{"MnuHelp_Help", "&Help", &LaunchCommands::showHelp, "F1"},
    Launch{"MnuHelp_HelpCont", "Help &Contents", &LaunchCommands::showHelpContents, "Shift+F1"},
    Launch{"MnuOpenGenFol", "Open the '&Command And Conquer Generals' Folder",
           &LaunchCommands::openGameFolder},
    Launch{"MnuOpenKorvaneFol", "Open the 'Command And Conquer Generals &Korvane' Folder",
           &LaunchCommands::openKorvaneFolder},
    Launch{"MnuFCS", "Go to '&Ferncastle Software'", &LaunchCommands::openMakersPage},
    Launch{"MnuDevPage", "Go to the Korvane &Development Page", &LaunchCommands::openDevelopmentPage},
    Launch{"MnuHelp_About", "&About", &LaunchCommands::showAbout},
};

constexpr MenuRow kSeparator1{1};
constexpr MenuRow kSeparator2{2};

constexpr std::array kMenuBar = {
    MenuRow{0, "MnuFile", "&File"},
    MenuRow{1, "MnuNew", "&New"},
    MenuRow{2, "MnuNewUnit"},
    MenuRow{2, "MnuNewBuilding"},
    kSeparator1,
    MenuRow{1, "MnuBackup"},
    MenuRow{1, "MnuRestore"},
    kSeparator1,
    MenuRow{1, "MnuRun"},
    kSeparator1,
    MenuRow{1, "MnuExit"},
    MenuRow{0, "MnuEdit", "&Edit"},
    MenuRow{1, "MnuOpt"},
    kSeparator1,
    MenuRow{1, "MnuFiles", "&Files"},
    MenuRow{1, "MnuEditors", "&Editors"},
    MenuRow{2, "MnuWe"},
    MenuRow{2, "MnuArmour"},
    kSeparator2,
    MenuRow{2, "MnuCmdSetEditor"},
    MenuRow{2, "MnuCmdBtnEditor"},
    MenuRow{0, "menuSearch", "&Search"},
    MenuRow{1, "findAnything"},
    MenuRow{1, "goToDefinition"},
    MenuRow{1, "showInFile"},
    MenuRow{1, "editInFile"},
    MenuRow{1, "readAgain"},
    MenuRow{1, "findUses"},
    MenuRow{1, "namesUsed"},
    MenuRow{1, "findInFiles"},
    MenuRow{1, "checkData"},
    MenuRow{1, "showHistory"},
    MenuRow{1, "compareOriginal"},
    MenuRow{1, "onlyChanged"},
    kSeparator1,
    MenuRow{1, "goBack"},
    MenuRow{1, "goForward"},
    MenuRow{0, "MnuHelp", "&Help"},
    MenuRow{1, "MnuHelp_Help"},
    MenuRow{1, "MnuHelp_HelpCont"},
    MenuRow{1, "MnuShortcuts", "&Shortcuts"},
    MenuRow{2, "MnuOpenGenFol"},
    MenuRow{2, "MnuOpenKorvaneFol"},
    kSeparator2,
    MenuRow{2, "MnuFCS"},
    MenuRow{2, "MnuDevPage"},
    MenuRow{1, "MnuHelp_About"},
};

QString FileCommand(std::size_t index) {
  return "MnuFileEdit" + QString::number(index);
}

void FillFiles(QMenu& menu, const Commands& commands) {
  for (std::size_t i = 0; i < kFileEntries.size(); ++i) {
    if (*kFileEntries[i] == '\0') {
      menu.addSeparator()->setObjectName(FileCommand(i));
    } else {
      menu.addAction(&commands.action(FileCommand(i)));
    }
  }
}

}  // namespace

void AddMainCommands(Commands& commands, LaunchCommands& launch, const std::function<void()>& exit) {
  commands.add<LaunchCommands>(kCommands, launch);
  for (std::size_t i = 0; i < kFileEntries.size(); ++i) {
    const QString name = kFileEntries[i];
    if (!name.isEmpty())
      commands.add(FileCommand(i), name, {}, [&launch, name] { launch.openDataFile(name); });
  }
  commands.add("MnuExit", "E&xit", "F12", exit);
}

void BuildMainMenu(QMenuBar& bar, const Commands& commands) {
  FillMenuBar(bar, commands, kMenuBar);
  FillFiles(*bar.findChild<QMenu*>("MnuFiles"), commands);
}

}  // namespace korvane
