// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/SourceItems.h"

#include <algorithm>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

class ItemSink : public StructureSink {
 public:
  ItemSink(const SourceText& source, std::uint32_t file, std::vector<SourceItem>& items)
      : text_(source.text), path_(source.file.path), file_(file), items_(items) {}

  void blockBegins(const BlockHeader& block) override {
    if (block.depth > 0) return;
    const KindId kind = structure_.type(block.type).kind;
    const bool named = kind != kNoKind && structure_.kinds()[kind].names > 0;
    item_ = {.kind = kind,
             .name = named ? block.first.text : std::string_view(),
             .text = {},
             .path = path_,
             .file = file_,
             .line = block.place.line};
    begin_ = block.lineOffset;
  }

  void blockEnds(const BlockHeader& block, const BlockEnd& end) override {
    if (block.depth > 0) return;
    item_.text = text_.substr(begin_, end.behind - begin_);
    item_.lastLine = end.lastLine;
    items_.push_back(item_);
  }

  // Only lines outside of all blocks are wanted, and those keys are known.
  bool wantsKey(const KeyFacts* facts) override { return facts != nullptr; }

  void keyFound(const KeyLine& key) override {
    if (key.block != nullptr) return;
    const std::size_t end = std::min(text_.find_first_of("\r\n", key.place.offset), text_.size());
    items_.push_back({.kind = kNoKind,
                      .name = key.key.text,
                      .text = text_.substr(key.place.offset, end - key.place.offset),
                      .path = path_,
                      .file = file_,
                      .line = key.place.line,
                      .lastLine = key.place.line});
  }

 private:
  const GameStructure& structure_ = GameStructure::get();
  std::string_view text_;
  std::string_view path_;
  std::uint32_t file_;
  std::vector<SourceItem>& items_;
  SourceItem item_;
  std::size_t begin_ = 0;
};

bool Before(const SourceItem& a, const SourceItem& b) {
  return a.kind != b.kind ? a.kind < b.kind : LessFolded(a.name, b.name);
}

}  // namespace

std::optional<SourceItems> ReadItems(const DataSource& source, const std::vector<KindId>& kinds,
                                     const std::stop_token& stop, const TellProgress& tell) {
  SourceItems read;
  auto skipped = ReadDataSource(
      source, [&](SourceText text) { read.files.push_back(std::move(text)); }, stop, tell);
  if (!skipped) return std::nullopt;
  read.skipped = std::move(*skipped);
  for (std::uint32_t i = 0; i < read.files.size(); ++i) {
    ItemSink sink(read.files[i], i, read.items);
    ReadStructure(read.files[i].text, sink);
    if (stop.stop_requested()) return std::nullopt;
  }
  if (!kinds.empty())
    std::erase_if(read.items, [&](const SourceItem& item) { return !std::ranges::count(kinds, item.kind); });
  std::stable_sort(read.items.begin(), read.items.end(), Before);
  return read;
}

}  // namespace korvane
