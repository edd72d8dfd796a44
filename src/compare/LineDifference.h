// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "compare/SequenceDifference.h"

namespace korvane {

// Lines end at CR LF, LF or CR, which do not count when they are compared. Views are parts of the text.
std::vector<std::string_view> LinesOf(std::string_view text);

// Runs of lines, by their indexes from 0.
std::vector<DifferenceRun> CompareLines(const std::vector<std::string_view>& former,
                                        const std::vector<std::string_view>& present);

// A part of a line, in bytes.
struct LinePart {
  std::size_t begin = 0;
  std::size_t size = 0;

  bool operator==(const LinePart&) const = default;
};

// What differs in two lines, by whole words; blanks between two such words belong to the part.
struct WordDifference {
  std::vector<LinePart> former;
  std::vector<LinePart> present;
};
WordDifference CompareWords(std::string_view former, std::string_view present);

}  // namespace korvane
