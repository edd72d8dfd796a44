// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "edit/FieldLines.h"

namespace korvane {

// A line for a field whose block has none.
struct NewLine {
  std::size_t behind = 0;  // which line (an index) it comes
  std::string text{};      // without a line end
  Refusal refusal{};       // there is no true place for it
};
NewLine MakeNewLine(const BlockText& block, const Field& field, std::string_view value);

}  // namespace korvane
