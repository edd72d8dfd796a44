// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "controls/NoticeBar.h"

namespace korvane {

// Names the data files that are missing below the game folder (the program's path); nothing when all are
// there.
std::vector<Notice> MissingGameFiles(std::string_view gameFolder);

}  // namespace korvane
