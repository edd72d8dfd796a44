// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvane {

// A text out of a file as it may be printed: it could hold anything, such as orders to the terminal.
std::string Printable(std::string text);

}  // namespace korvane
