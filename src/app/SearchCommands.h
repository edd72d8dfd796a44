// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "app/EditorLauncher.h"

namespace korvane {

class Commands;

// The search commands with their usual keys, for windows that have no menu "Search".
void AddSearchCommands(Commands& commands, const std::function<void(SearchCommand)>& carryOut);

}  // namespace korvane
