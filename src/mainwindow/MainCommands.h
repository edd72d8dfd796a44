// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QMenuBar;

namespace korvane {

class Commands;
class LaunchCommands;

// The commands of the main window. Actions and menus carry their names as objectName; the data files are
// "MnuFileEdit" followed by their index. `exit` is the Exit command.
void AddMainCommands(Commands& commands, LaunchCommands& launch, const std::function<void()>& exit);

void BuildMainMenu(QMenuBar& bar, const Commands& commands);

}  // namespace korvane
