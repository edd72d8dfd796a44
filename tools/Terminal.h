// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// True when what is written to the standard error stream is seen on a terminal.
bool ErrorsGoToTerminal();

}  // namespace korvane
