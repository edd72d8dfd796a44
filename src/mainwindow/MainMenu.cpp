// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <array>
#include <vector>

#include "mainwindow/FileEntries.h"
#include "mainwindow/LaunchCommands.h"

namespace korvane {

namespace {

using Launch = void (LaunchCommands::*)();

enum class Kind { menu, command, exit, separator, files, disabled };

// An entry of the menu bar; `depth` 0 stands in the bar itself, and a menu holds the deeper entries after it.
struct Entry {
  int depth;
  Kind kind;
  const char* caption = "";
  const char* name = "";
  const char* shortcut = "";
  Launch launch = nullptr;
};

constexpr Entry kSeparator2{2, Kind::separator};
constexpr Entry kSeparator1{1, Kind::separator};

constexpr std::array kEntries = {
    Entry{0, Kind::menu, "&File", "MnuFile"},
    Entry{1, Kind::menu, "&New", "MnuNew"},
    Entry{2, Kind::disabled, "&Unit...", "MnuNewUnit"},
    Entry{2, Kind::disabled, "&Building...", "MnuNewBuilding"},
    kSeparator1,
    Entry{1, Kind::disabled, "&Backup Settings...", "MnuBackup"},
    Entry{1, Kind::disabled, "Re&store Settings...", "MnuRestore"},
    kSeparator1,
    Entry{1, Kind::command, "&Run 'Command And Conquer Generals'", "MnuRun", "F2", &LaunchCommands::runGame},
    kSeparator1,
    Entry{1, Kind::exit, "E&xit", "MnuExit", "F12"},
    Entry{0, Kind::menu, "&Edit", "MnuEdit"},
    Entry{1, Kind::command, "&Options", "MnuOpt", "F9", &LaunchCommands::showOptions},
    kSeparator1,
    Entry{1, Kind::files, "&Files", "MnuFiles"},
    Entry{1, Kind::menu, "&Editors", "MnuEditors"},
    Entry{2, Kind::command, "&Weapons Editor", "MnuWe", "", &LaunchCommands::showWeaponEditor},
    Entry{2, Kind::command, "&Armour Editor", "MnuArmour", "", &LaunchCommands::showArmourEditor},
    kSeparator2,
    Entry{2, Kind::command, "Command &Set Editor", "MnuCmdSetEditor", "",
          &LaunchCommands::showCommandSetEditor},
    Entry{2, Kind::command, "Command &Button Editor", "MnuCmdBtnEditor", "",
          &LaunchCommands::showCommandButtonEditor},
    Entry{0, Kind::menu, "&Help", "MnuHelp"},
    Entry{1, Kind::command, "&Help", "MnuHelp_Help", "F1", &LaunchCommands::showHelp},
    Entry{1, Kind::command, "Help &Contents", "MnuHelp_HelpCont", "Shift+F1",
          &LaunchCommands::showHelpContents},
    Entry{1, Kind::menu, "&Shortcuts", "MnuShortcuts"},
    Entry{2, Kind::command, "Open the '&Command And Conquer Generals' Folder", "MnuOpenGenFol", "",
          &LaunchCommands::openGameFolder},
    Entry{2, Kind::command, "Open the 'Command And Conquer Generals &Korvane' Folder", "MnuOpenKorvaneFol",
          "", &LaunchCommands::openKorvaneFolder},
    kSeparator2,
    Entry{2, Kind::command, "Go to '&Ferncastle Software'", "MnuFCS", "", &LaunchCommands::openMakersPage},
    Entry{2, Kind::command, "Go to the Korvane &Development Page", "MnuDevPage", "",
          &LaunchCommands::openDevelopmentPage},
    Entry{1, Kind::command, "&About", "MnuHelp_About", "", &LaunchCommands::showAbout},
};

QMenu* AddMenu(QMenuBar& bar, const std::vector<QMenu*>& open, const Entry& entry) {
  QMenu* menu = open.empty() ? bar.addMenu(entry.caption) : open.back()->addMenu(entry.caption);
  menu->setObjectName(entry.name);
  return menu;
}

void FillFiles(QMenu& menu, LaunchCommands& commands) {
  for (std::size_t i = 0; i < kFileEntries.size(); ++i) {
    const QString name = kFileEntries[i];
    QAction* action = name.isEmpty() ? menu.addSeparator() : menu.addAction(name);
    action->setObjectName("MnuFileEdit" + QString::number(i));
    if (!name.isEmpty()) {
      QObject::connect(action, &QAction::triggered, &menu,
                       [&commands, name] { commands.openDataFile(name); });
    }
  }
}

void AddAction(QMenu& menu, const Entry& entry, LaunchCommands& commands, const std::function<void()>& exit) {
  QAction* action = menu.addAction(entry.caption);
  action->setObjectName(entry.name);
  action->setShortcut(QKeySequence(QString(entry.shortcut)));
  action->setEnabled(entry.kind != Kind::disabled);
  if (entry.kind == Kind::exit) QObject::connect(action, &QAction::triggered, &menu, exit);
  if (const Launch launch = entry.launch; launch != nullptr) {
    QObject::connect(action, &QAction::triggered, &menu, [&commands, launch] { (commands.*launch)(); });
  }
}

}  // namespace

void BuildMainMenu(QMenuBar& bar, LaunchCommands& commands, const std::function<void()>& exit) {
  std::vector<QMenu*> open;
  for (const Entry& entry : kEntries) {
    open.resize(static_cast<std::size_t>(entry.depth));
    switch (entry.kind) {
      case Kind::menu:
        open.push_back(AddMenu(bar, open, entry));
        break;
      case Kind::files:
        open.push_back(AddMenu(bar, open, entry));
        FillFiles(*open.back(), commands);
        break;
      case Kind::separator:
        open.back()->addSeparator();
        break;
      case Kind::command:
      case Kind::exit:
      case Kind::disabled:
        AddAction(*open.back(), entry, commands, exit);
        break;
    }
  }
}

}  // namespace korvane
