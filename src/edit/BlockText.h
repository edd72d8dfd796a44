// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "edit/Fields.h"

namespace korvane {

inline constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

// A line of a shown block. Views are parts of the file's bytes.
struct BlockLine {
  std::string_view text{};
  std::string_view end{};        // its line end; empty at the file's end
  int number = 0;                // from 1, as an editor counts: each CR LF, CR or LF ends a line
  std::string_view key{};        // in the game's reading; empty for headers, Ends and all that holds no key
  std::size_t inner = kNowhere;  // index of the innermost block in the game's reading
};

// A block in the game's reading; the first one is the shown block itself.
struct InnerBlock {
  std::string_view keyword{};
  std::size_t depth = 0;
  int firstLine = 0;
  int lastLine = 0;
};

// A block as the display grammar cuts it out, with what the game reads in it.
struct BlockText {
  std::vector<BlockLine> lines{};  // from the header to the End, both included; none: there is no such block
  std::vector<InnerBlock> inner{};
  bool longerName = false;  // the header has a longer name than was looked for
  bool hasMore = false;     // the game reads more of the block behind its shown end
  bool loneLf = false;      // a line of it holds a line feed

  // The first line (an index) that the game reads as the block's own key, letter case ignored, in the inner
  // block; kNowhere.
  std::size_t lineOfKey(std::size_t innerBlock, std::string_view wanted) const;
};

BlockText ReadBlockText(std::string_view bytes, const BlockName& name);

}  // namespace korvane
