// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/BlockText.h"

#include <algorithm>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"
#include "ini/Blocks.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// Cuts the block into its lines.
void TakeLines(std::string_view bytes, int number, BlockText& block) {
  ForEachLine(bytes, [&](std::string_view line) {
    const auto behind = static_cast<std::size_t>(line.data() - bytes.data()) + line.size();
    const std::size_t size = behind == bytes.size() ? 0 : bytes.substr(behind).starts_with(kLineEnd) ? 2 : 1;
    block.lines.push_back({.text = line, .end = bytes.substr(behind, size), .number = number});
    number += static_cast<int>(LinesInEditor(line));
  });
}

bool HasLineFeed(std::string_view line) {
  return line.find('\n') != std::string_view::npos;
}

bool NameGoesOn(std::string_view behindName) {
  return !behindName.empty() && std::string_view(" \t;\n").find(behindName[0]) == std::string_view::npos;
}

// Adds what the game reads in the block.
class GameReading : public StructureSink {
 public:
  explicit GameReading(BlockText& block) : block_(block), first_(block.lines.front().number) {}

  void blockBegins(const BlockHeader& header) override {
    if (done_) return;
    open_.push_back(block_.inner.size());
    block_.inner.push_back({header.keyword.text, header.depth, lineOf(header.place), 0});
  }
  void keyFound(const KeyLine& key) override {
    if (done_ || open_.empty()) return;
    if (BlockLine* line = lineAt(lineOf(key.place))) {
      line->key = key.key.text;
      line->inner = open_.back();
    }
  }
  void blockEnds(const BlockHeader& header, const BlockEnd& end) override {
    if (done_ || open_.empty()) return;
    block_.inner[open_.back()].lastLine = first_ + static_cast<int>(end.lastLine) - 1;
    open_.pop_back();
    done_ = header.depth == 0;
  }
  bool goesOn() override { return !done_; }

 private:
  int lineOf(const TextPlace& place) const { return first_ + static_cast<int>(place.line) - 1; }
  BlockLine* lineAt(int number) {
    const auto found = std::ranges::lower_bound(block_.lines, number, {}, &BlockLine::number);
    return found == block_.lines.end() || found->number != number ? nullptr : &*found;
  }

  BlockText& block_;
  int first_;
  std::vector<std::size_t> open_;
  bool done_ = false;
};

}  // namespace

std::size_t BlockText::lineOfKey(std::size_t innerBlock, std::string_view wanted) const {
  const auto found = std::ranges::find_if(lines, [&](const BlockLine& line) {
    return line.inner == innerBlock && EqualFolded(line.key, wanted);
  });
  return found == lines.end() ? kNowhere : static_cast<std::size_t>(found - lines.begin());
}

BlockText ReadBlockText(std::string_view bytes, const BlockName& name) {
  BlockText block;
  const std::string lowerHeader = ToLowerAscii(std::string(name.kind).append(" ").append(name.name));
  const auto span = FindBlock(bytes, lowerHeader);
  if (!span) return block;
  TakeLines(bytes.substr(span->offset, span->size), static_cast<int>(span->firstLine), block);
  block.longerName = NameGoesOn(block.lines.front().text.substr(lowerHeader.size()));
  block.loneLf = std::ranges::any_of(block.lines, HasLineFeed, &BlockLine::text);
  GameReading reading(block);
  ReadStructure(bytes.substr(span->offset), reading);
  block.hasMore = !block.inner.empty() && block.inner.front().lastLine > block.lines.back().number;
  return block;
}

}  // namespace korvane
