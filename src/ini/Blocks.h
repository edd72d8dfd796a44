// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "ini/IniText.h"
#include "ini/TVItem.h"

namespace korvane {

// The blocks of a file as fields and tables show them: a block begins at a header in the first column and
// ends at the first later line that begins with "end", in any letter case. There is no nesting.

struct HeaderLine {
  std::string_view line;
  std::string_view kind;                 // the line's first word
  std::optional<std::string_view> name;  // its second word; nothing without a space behind the kind
};

HeaderLine HeaderOf(std::string_view line);

// The header in a line that begins, letter case significant, with `begin` (a kind, with or without the space
// behind it). Nothing for any other line.
inline std::optional<HeaderLine> HeaderIn(std::string_view line, std::string_view begin) {
  return TVItem::CheckText(line, begin) ? std::optional(HeaderOf(line)) : std::nullopt;
}

bool EndsBlock(std::string_view line);

// How many lines an editor makes of a line: a lone LF ends one there.
std::size_t LinesInEditor(std::string_view line);

// The number that an editor gives the line that begins at an offset, from 1.
std::size_t LineInEditor(std::string_view bytes, std::size_t offset);

// Reads a file and hands out its headers, in their order; those inside unfinished blocks too.
void ReadHeaders(TVItem& reader, const ProgramPath& path, std::string_view begin,
                 const std::function<void(const HeaderLine&)>& take);

// A block in the bytes of a file. Lines are counted from 1 as an editor counts them.
struct BlockSpan {
  HeaderLine header;
  std::size_t firstLine = 0;
  std::size_t lastLine = 0;  // the line that ends it, else the file's last
  std::size_t offset = 0;    // of the header's first byte
  std::size_t size = 0;      // to the last line's end, without its terminator
};

// The first block whose header begins, in any letter case, with `lowerBegin`, which is in small letters.
std::optional<BlockSpan> FindBlock(std::string_view bytes, std::string_view lowerBegin);

}  // namespace korvane
