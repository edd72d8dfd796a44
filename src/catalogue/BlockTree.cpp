// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/BlockTree.h"

#include <algorithm>

#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

class BlockCollector : public StructureSink {
 public:
  void blockBegins(const BlockHeader& block) override {
    const auto index = static_cast<std::uint32_t>(blocks.size());
    blocks.push_back({.type = block.type,
                      .parent = open_.empty() ? TextBlock::kNone : open_.back(),
                      .depth = block.depth,
                      .firstLine = block.place.line,
                      .column = block.place.column,
                      .begin = block.lineOffset,
                      .keyword = std::string(block.keyword.text),
                      .sign = block.sign,
                      .words = std::string(block.words)});
    open_.push_back(index);
  }

  void blockEnds(const BlockHeader& /*block*/, const BlockEnd& end) override {
    TextBlock& block = blocks[open_.back()];
    open_.pop_back();
    block.lastLine = end.lastLine;
    block.behind = end.behind;
    block.closed = end.closed;
  }

  std::vector<TextBlock> blocks;

 private:
  std::vector<std::uint32_t> open_;
};

}  // namespace

std::vector<TextBlock> ReadBlocks(std::string_view text) {
  BlockCollector collector;
  ReadStructure(text, collector);
  return std::move(collector.blocks);
}

std::uint32_t BlockAtLine(const std::vector<TextBlock>& blocks, std::uint32_t line) {
  const auto behind =
      std::upper_bound(blocks.begin(), blocks.end(), line,
                       [](std::uint32_t at, const TextBlock& block) { return at < block.firstLine; });
  if (behind == blocks.begin()) return TextBlock::kNone;
  auto index = static_cast<std::uint32_t>(behind - blocks.begin() - 1);
  while (index != TextBlock::kNone && blocks[index].lastLine < line) index = blocks[index].parent;
  return index;
}

}  // namespace korvane
