// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/Blocks.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::string_view kBlockEnd = "end";

}  // namespace

HeaderLine HeaderOf(std::string_view line) {
  return {line, line.substr(0, line.find(' ')), HeaderName(line)};
}

std::size_t LinesInEditor(std::string_view line) {
  return 1 + static_cast<std::size_t>(std::ranges::count(line, '\n'));
}

bool EndsBlock(std::string_view line) {
  return BeginsWithIgnoringCase(line, kBlockEnd);
}

void ReadHeaders(TVItem& reader, const ProgramPath& path, std::string_view begin,
                 const std::function<void(const HeaderLine&)>& take) {
  reader.NewLine = [&](std::string_view line) {
    if (const auto header = HeaderIn(line, begin)) take(*header);
  };
  reader.OpenFile(path.text());
  reader.NewLine = nullptr;
}

std::size_t LineInEditor(std::string_view bytes, std::size_t offset) {
  if (offset == 0) return 1;
  const bool first = bytes[0] == '\r' || bytes[0] == '\n';
  // CR LF is one line end, which the CR counts for.
  const std::size_t others = CountBehindFirst(bytes.substr(0, offset), [](char before, char byte) {
    return (static_cast<int>(byte == '\r') | static_cast<int>(kIsLoneLf(before, byte))) != 0;
  });
  return 1 + static_cast<std::size_t>(first) + others;
}

std::optional<BlockSpan> FindBlock(std::string_view bytes, std::string_view lowerBegin) {
  std::optional<BlockSpan> block;
  std::size_t lastOffset = 0;
  std::string_view last;
  ForEachLine(bytes, [&](std::string_view line) {
    const auto offset = static_cast<std::size_t>(line.data() - bytes.data());
    if (!block && BeginsWithIgnoringCase(line, lowerBegin))
      block = BlockSpan{HeaderOf(line), 0, 0, offset, 0};
    if (!block) return true;
    last = line;
    lastOffset = offset;
    return !EndsBlock(line);
  });
  if (!block) return block;
  block->firstLine = LineInEditor(bytes, block->offset);
  const std::string_view inBlock = bytes.substr(block->offset);
  const std::size_t linesOfLast = EndsBlock(last) ? 1 : LinesInEditor(last);
  block->lastLine = block->firstLine + LineInEditor(inBlock, lastOffset - block->offset) + linesOfLast - 2;
  block->size = lastOffset + last.size() - block->offset;
  return block;
}

}  // namespace korvane
