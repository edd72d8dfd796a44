// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>

#include "compare/Comparison.h"

namespace korvane {

// A line for every item, and under it one for every key. UTF-8 with LF.
void WriteText(std::ostream& out, const Comparison& comparison);

}  // namespace korvane
