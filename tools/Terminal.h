// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// True when what is written to the stream is seen on a terminal.
bool OutputGoesToTerminal();
bool ErrorsGoToTerminal();

}  // namespace korvane
