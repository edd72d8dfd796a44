// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvane {

// True for a word that is meant as a number and cannot be read as one to its end: "0,52", "Y:15:", "40v.0".
// A label may stand before the number ("X:10", or "X:" with the number in the next word), "%" or "f" behind
// it. A word without a digit is meant as something else.
bool IsMisshapenNumber(std::string_view word);

}  // namespace korvane
