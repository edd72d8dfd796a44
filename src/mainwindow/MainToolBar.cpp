// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainToolBar.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <span>

#include "controls/Icons.h"
#include "mainwindow/FileEntries.h"
#include "mainwindow/LaunchCommands.h"

namespace korvane {

namespace {

using Launch = void (LaunchCommands::*)();
using Captions = std::span<const char* const>;

constexpr std::array kNewEntries = {"Unit", "Building"};

struct EditorEntry {
  const char* caption;  // empty: a separator
  Launch launch = nullptr;
};

constexpr std::array kEditors = {
    EditorEntry{"Weapons Editor", &LaunchCommands::showWeaponEditor},
    EditorEntry{"Armour Editor", &LaunchCommands::showArmourEditor},
    EditorEntry{""},
    EditorEntry{"Command Button Editor", &LaunchCommands::showCommandButtonEditor},
    EditorEntry{"Command Set Editor", &LaunchCommands::showCommandSetEditor},
};

constexpr auto kEditorEntries = [] {
  std::array<const char*, kEditors.size()> captions{};
  std::ranges::transform(kEditors, captions.begin(), &EditorEntry::caption);
  return captions;
}();

struct Button {
  const char* key;
  const char* tooltip;
  const char* icon;
  Launch launch = nullptr;
  Captions entries{};
  const char* description = "";
};

const std::array kButtons = {
    Button{
        "MISC01", "Run Command And Conquer Generals", "run", &LaunchCommands::runGame, {}, "Runs the game"},
    Button{"New", "New", "new", nullptr, kNewEntries},
    Button{"Save", "Save", "save"},
    Button{"Properties", "Properties", "properties", &LaunchCommands::showOptions},
    Button{"Help", "Help", "help", &LaunchCommands::showHelp},
    Button{"DISK12", "Files", "files", &LaunchCommands::tellAboutArrow, kFileEntries},
    Button{"WRENCH", "Editors", "editors", &LaunchCommands::tellAboutArrow, kEditorEntries},
};
constexpr Button kExitButton{"W95MBX01", "Exit", "exit"};

// A drop-down entry is known by its text alone, in any letter case.
void Dispatch(LaunchCommands& commands, const QString& text) {
  const QString lower = text.toLower();
  for (const EditorEntry& editor : kEditors) {
    if (editor.launch != nullptr && lower == QString(editor.caption).toLower())
      return (commands.*editor.launch)();
  }
  commands.openDataFile(lower);
}

QMenu* DropDown(QToolButton& button, Captions entries, LaunchCommands& commands) {
  auto* menu = new QMenu(&button);
  for (const QString entry : entries) {
    if (entry.isEmpty()) {
      menu->addSeparator();
    } else {
      QAction* action = menu->addAction(entry);
      action->setObjectName(entry);
      QObject::connect(action, &QAction::triggered, menu, [&commands, entry] { Dispatch(commands, entry); });
    }
  }
  return menu;
}

QToolButton* AddButton(QToolBar& bar, const Button& button, LaunchCommands& commands) {
  auto* shown = new QToolButton;
  shown->setObjectName(button.key);
  shown->setIcon(ThemeIcon(button.icon));
  shown->setToolTip(button.tooltip);
  shown->setAccessibleName(button.tooltip);
  shown->setAccessibleDescription(button.description);
  shown->setAutoRaise(true);
  shown->setFocusPolicy(Qt::TabFocus);
  if (!button.entries.empty()) {
    shown->setMenu(DropDown(*shown, button.entries, commands));
    shown->setPopupMode(QToolButton::MenuButtonPopup);
  }
  if (const Launch launch = button.launch; launch != nullptr) {
    QObject::connect(shown, &QToolButton::clicked, &bar, [&commands, launch] { (commands.*launch)(); });
  }
  bar.addWidget(shown);
  return shown;
}

}  // namespace

void BuildMainToolBar(QToolBar& bar, LaunchCommands& commands, const std::function<void()>& exit) {
  for (const Button& button : kButtons) AddButton(bar, button, commands);
  QObject::connect(AddButton(bar, kExitButton, commands), &QToolButton::clicked, &bar, exit);
}

}  // namespace korvane
