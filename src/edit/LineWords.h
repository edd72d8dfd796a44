// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

// The word of a line that is shown. A problem (a clause for the user) tells why another word cannot take its
// place; empty: it can.
struct ShownWord {
  std::size_t at = 0;  // bytes before it
  std::size_t length = 0;
  std::string_view problem{};
};

// The first word of the line: its key.
std::string_view KeyWord(std::string_view line);

// The value in a line with a key. `labels`: how many words may stand before it behind the "=".
ShownWord ShownValueWord(std::string_view line, std::size_t labels);
// The percentage in a line of an armour type.
ShownWord ShownPercentage(std::string_view line);

// Why a text cannot stand for a value in a line; empty: it can.
std::string_view ProblemOfValue(std::string_view value);
std::string_view ProblemOfPercentage(std::string_view value);

}  // namespace korvane
