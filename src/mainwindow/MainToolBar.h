// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QToolBar;

namespace korvane {

class LaunchCommands;

// Fills the toolbar. The buttons carry their keys as objectName. `exit` is the Exit command.
void BuildMainToolBar(QToolBar& bar, LaunchCommands& commands, const std::function<void()>& exit);

}  // namespace korvane
