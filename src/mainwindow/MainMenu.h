// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QMenuBar;

namespace korvane {

class LaunchCommands;

// Fills the menu bar. Menus and actions carry their names as objectName; the data files are "MnuFileEdit"
// followed by their index. `exit` is the Exit command.
void BuildMainMenu(QMenuBar& bar, LaunchCommands& commands, const std::function<void()>& exit);

}  // namespace korvane
