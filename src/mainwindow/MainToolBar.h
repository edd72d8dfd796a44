// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QToolBar;

namespace korvane {

class Commands;
class LaunchCommands;

// Fills the toolbar. The buttons carry their keys as objectName.
void BuildMainToolBar(QToolBar& bar, const Commands& commands, LaunchCommands& launch);

}  // namespace korvane
