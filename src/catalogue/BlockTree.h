// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"

namespace korvane {

// A block of a text: for outlines and folding. Lines and columns are counted from 1, offsets and columns are
// bytes.
struct TextBlock {
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

  BlockTypeId type = kNoBlockType;
  std::uint32_t parent = kNone;  // index of the block around it
  std::uint32_t depth = 0;
  std::uint32_t firstLine = 0;
  std::uint32_t lastLine = 0;  // of its End; without one, the last line that may belong to it
  std::uint32_t column = 0;    // of its keyword
  std::size_t begin = 0;       // offset of its first line
  std::size_t behind = 0;      // offset of the line behind its last one
  bool closed = true;          // it has an End of its own
  std::string keyword;         // as it stands in the text
  bool sign = false;           // "=" stands behind it
  std::string words;           // what follows it in its header: a name, a module and its tag, conditions
};

// All blocks in the order of their headers.
std::vector<TextBlock> ReadBlocks(std::string_view text);

// The innermost block that has the line, its header and End included; TextBlock::kNone when it stands in
// none.
std::uint32_t BlockAtLine(const std::vector<TextBlock>& blocks, std::uint32_t line);

}  // namespace korvane
