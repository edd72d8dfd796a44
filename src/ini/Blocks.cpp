// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/Blocks.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::string_view kBlockEnd = "end";

HeaderLine Header(std::string_view line) {
  return {line, line.substr(0, line.find(' ')), HeaderName(line)};
}

}  // namespace

std::optional<HeaderLine> HeaderIn(std::string_view line, std::string_view begin) {
  if (!TVItem::CheckText(line, begin)) return std::nullopt;
  return Header(line);
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

std::optional<BlockSpan> FindBlock(std::string_view bytes, std::string_view lowerBegin) {
  std::optional<BlockSpan> block;
  std::size_t number = 1;
  bool ended = false;
  const auto take = [&](std::string_view line) {
    const auto offset = static_cast<std::size_t>(line.data() - bytes.data());
    if (!block && BeginsWithIgnoringCase(line, lowerBegin))
      block = BlockSpan{Header(line), number, 0, offset, 0};
    ended = block && EndsBlock(line);
    const std::size_t lastOfLine = number + LinesInEditor(line) - 1;
    if (block) {
      block->lastLine = ended ? number : lastOfLine;
      block->size = offset + line.size() - block->offset;
    }
    number = lastOfLine + 1;
    return !ended;
  };
  ForEachLine(bytes, take);
  return block;
}

}  // namespace korvane
