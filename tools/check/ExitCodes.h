// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

enum CheckExitCode { kNothingFound = 0, kFound = 1, kCouldNotCheck = 2 };

}  // namespace korvane
