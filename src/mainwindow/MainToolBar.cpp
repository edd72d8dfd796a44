// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainToolBar.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <array>
#include <span>

#include "app/Commands.h"
#include "controls/Icons.h"
#include "mainwindow/FileEntries.h"
#include "mainwindow/LaunchCommands.h"

namespace korvane {

namespace {

using Entries = std::span<const char* const>;

constexpr std::array kNewEntries = {"Unit", "Building"};
constexpr std::array kEditors = {"MnuWe", "MnuArmour", "", "MnuCmdBtnEditor", "MnuCmdSetEditor"};

struct Button {
  const char* key;
  const char* tooltip;
  const char* icon;
  const char* command = "";  // empty: a click does nothing, or tells about the arrow
  Entries entries{};  // of the drop-down: a command, shown by its caption, or a text; empty: a separator
  bool tellsAboutArrow = false;
  const char* description = "";
};

constexpr std::array kButtons = {
    Button{"MISC01", "Run Command And Conquer Generals", "run", "MnuRun", {}, false, "Runs the game"},
    Button{"New", "New", "new", "", kNewEntries},
    Button{"Save", "Save", "save"},
    Button{"Properties", "Properties", "properties", "MnuOpt"},
    Button{"Help", "Help", "help", "MnuHelp_Help"},
    Button{"DISK12", "Files", "files", "", kFileEntries, true},
    Button{"WRENCH", "Editors", "editors", "", kEditors, true},
    Button{"W95MBX01", "Exit", "exit", "MnuExit"},
};

QString TextOf(const Commands& commands, const char* entry) {
  const QAction* action = commands.find(entry);
  return action == nullptr ? QString(entry) : action->text().remove('&');
}

// A drop-down entry is known by its text alone, in any letter case.
void Dispatch(const Commands& commands, LaunchCommands& launch, const QString& text) {
  const QString lower = text.toLower();
  for (const char* name : kEditors) {
    QAction* action = commands.find(name);
    if (action != nullptr && TextOf(commands, name).toLower() == lower) return action->trigger();
  }
  launch.openDataFile(lower);
}

QMenu* DropDown(QToolButton& button, Entries entries, const Commands& commands, LaunchCommands& launch) {
  auto* menu = new QMenu(&button);
  for (const char* name : entries) {
    const QString entry = TextOf(commands, name);
    if (entry.isEmpty()) {
      menu->addSeparator();
    } else {
      QAction* action = menu->addAction(entry);
      action->setObjectName(entry);
      QObject::connect(action, &QAction::triggered, menu,
                       [&commands, &launch, entry] { Dispatch(commands, launch, entry); });
    }
  }
  return menu;
}

void ConnectClick(QToolButton& shown, const Button& button, const Commands& commands,
                  LaunchCommands& launch) {
  if (*button.command != '\0') {
    QObject::connect(&shown, &QToolButton::clicked, &commands.action(button.command), &QAction::trigger);
  } else if (button.tellsAboutArrow) {
    QObject::connect(&shown, &QToolButton::clicked, &shown, [&launch] { launch.tellAboutArrow(); });
  }
}

QToolButton* MakeButton(const Button& button) {
  auto* shown = new QToolButton;
  shown->setObjectName(button.key);
  shown->setIcon(ThemeIcon(button.icon));
  shown->setToolTip(button.tooltip);
  shown->setAccessibleName(button.tooltip);
  shown->setAccessibleDescription(button.description);
  shown->setAutoRaise(true);
  shown->setFocusPolicy(Qt::TabFocus);
  return shown;
}

}  // namespace

void BuildMainToolBar(QToolBar& bar, const Commands& commands, LaunchCommands& launch) {
  for (const Button& button : kButtons) {
    QToolButton* shown = MakeButton(button);
    if (!button.entries.empty()) {
      shown->setMenu(DropDown(*shown, button.entries, commands, launch));
      shown->setPopupMode(QToolButton::MenuButtonPopup);
    }
    ConnectClick(*shown, button, commands, launch);
    bar.addWidget(shown);
  }
}

}  // namespace korvane
