// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueFile.h"

#include <algorithm>
#include <utility>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

constexpr std::size_t kFirstSlots = 64;

}  // namespace

// Collects what the reader of the structure tells.
class CatalogueFileMaker : public StructureSink {
 public:
  CatalogueFileMaker(SourceFile source, const std::stop_token& stop)
      : stop_(stop), made_(std::make_shared<CatalogueFile>()) {
    made_->source_ = std::move(source);
    made_->slots_.assign(kFirstSlots, CatalogueFile::kNone);
  }

  std::shared_ptr<const CatalogueFile> take() {
    fill(made_->definitionsOfNames_, made_->definitions_);
    fill(made_->usesOfNames_, made_->uses_);
    made_->texts_.shrink_to_fit();
    made_->blocks_.shrink_to_fit();
    made_->headers_.shrink_to_fit();
    made_->definitions_.shrink_to_fit();
    made_->uses_.shrink_to_fit();
    made_->names_.shrink_to_fit();
    return std::move(made_);
  }

  void blockBegins(const BlockHeader& block) override {
    const auto index = static_cast<std::uint32_t>(made_->blocks_.size());
    made_->blocks_.push_back({.type = block.type,
                              .parent = open_.empty() ? CatalogueFile::kNone : open_.back(),
                              .firstLine = block.place.line,
                              .column = block.place.column});
    made_->headers_.push_back(addHeader(block));
    open_.push_back(index);
    const KindId kind = structure_.type(block.type).kind;
    if (kind != kNoKind) define(kind, block.first, index);
    if (const KeyFacts* facts = structure_.header(block.type))
      takeNames(*facts, {block.words, block.wordsColumn}, block.place.line);
  }

  bool wantsKey(const KeyFacts* facts) override { return facts != nullptr && !facts->references.empty(); }

  void keyFound(const KeyLine& key) override {
    if (key.block != nullptr) takeNames(*key.facts, key.words(), key.place.line);
  }

  void blockEnds(const BlockHeader& /*block*/, const BlockEnd& end) override {
    made_->blocks_[open_.back()].lastLine = end.lastLine;
    open_.pop_back();
  }

  bool goesOn() override { return !stop_.stop_requested(); }

 private:
  CatalogueFile::Text addText(std::string_view text) {
    const auto begin = static_cast<std::uint32_t>(made_->texts_.size());
    made_->texts_ += text;
    return {begin, static_cast<std::uint32_t>(text.size())};
  }

  CatalogueFile::Text addHeader(const BlockHeader& block) {
    CatalogueFile::Text text = addText(block.keyword.text);
    if (!block.words.empty()) text.size += addText(block.sign ? " = " : " ").size + addText(block.words).size;
    return text;
  }

  void define(KindId kind, const TextWord& name, std::uint32_t block) {
    const SpaceId space = structure_.kinds()[kind].space;
    if (space == kNoSpace || name.text.empty()) return;
    made_->definitions_.push_back({kind, intern(space, name.text), block, name.column});
  }

  void takeNames(const KeyFacts& facts, WordReader words, std::uint32_t line) {
    if (facts.references.empty()) return;
    words_.clear();
    for (TextWord word = words.next(); !word.text.empty(); word = words.next()) words_.push_back(word);
    for (const Reference& reference : facts.references) {
      if (reference.label.empty()) {
        const std::size_t end = reference.more ? words_.size() : reference.first;
        for (std::size_t i = reference.first; i <= std::min(end, words_.size()); ++i)
          use(reference.space, words_[i - 1], line, facts.id);
      } else {
        takeLabelled(reference, line, facts.id);
      }
    }
  }

  void takeLabelled(const Reference& reference, std::uint32_t line, KeyId key) {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      const TextWord& word = words_[i];
      if (!EqualFolded(word.text.substr(0, reference.label.size()), reference.label)) continue;
      if (word.text.size() > reference.label.size()) {
        const auto size = static_cast<std::uint32_t>(reference.label.size());
        use(reference.space, {word.text.substr(size), word.column + size}, line, key);
      } else if (i + 1 < words_.size()) {
        use(reference.space, words_[i + 1], line, key);
      }
    }
  }

  void use(SpaceId space, const TextWord& word, std::uint32_t line, KeyId key) {
    if (structure_.isSpecial(word.text, space)) return;
    made_->uses_.push_back({intern(space, word.text), open_.back(), line, word.column, key});
  }

  CatalogueFile::NameId intern(SpaceId space, std::string_view text) {
    if (2 * made_->names_.size() >= made_->slots_.size()) growSlots();
    const auto hash = static_cast<std::uint32_t>(FoldedHash(text));
    const std::size_t mask = made_->slots_.size() - 1;
    std::size_t at = hash & mask;
    for (; made_->slots_[at] != CatalogueFile::kNone; at = (at + 1) & mask) {
      const CatalogueFile::Name& name = made_->names_[made_->slots_[at]];
      if (name.hash == hash && name.space == space && made_->textOf(name.text) == text)
        return made_->slots_[at];
    }
    made_->slots_[at] = static_cast<CatalogueFile::NameId>(made_->names_.size());
    made_->names_.push_back({addText(text), hash, space});
    return made_->slots_[at];
  }

  void growSlots() {
    const std::size_t mask = 2 * made_->slots_.size() - 1;
    made_->slots_.assign(mask + 1, CatalogueFile::kNone);
    for (std::size_t i = 0; i < made_->names_.size(); ++i) {
      std::size_t at = made_->names_[i].hash & mask;
      while (made_->slots_[at] != CatalogueFile::kNone) at = (at + 1) & mask;
      made_->slots_[at] = static_cast<CatalogueFile::NameId>(i);
    }
  }

  template <typename Places>
  void fill(CatalogueFile::Lists& lists, const Places& places) const {
    lists.ends.assign(made_->names_.size(), 0);
    lists.indexes.resize(places.size());
    for (const auto& place : places) ++lists.ends[place.name];
    std::uint32_t sum = 0;
    for (std::uint32_t& count : lists.ends) sum = std::exchange(count, sum) + sum;
    for (std::uint32_t i = 0; i < places.size(); ++i) lists.indexes[lists.ends[places[i].name]++] = i;
  }

  const GameStructure& structure_ = GameStructure::get();
  const std::stop_token& stop_;
  std::shared_ptr<CatalogueFile> made_;
  std::vector<std::uint32_t> open_;
  std::vector<TextWord> words_;
};

std::shared_ptr<const CatalogueFile> CatalogueFile::read(SourceFile source, std::string_view text,
                                                         const std::stop_token& stop) {
  CatalogueFileMaker maker(std::move(source), stop);
  return ReadStructure(text, maker) ? maker.take() : nullptr;
}

std::string_view CatalogueFile::header(std::uint32_t block) const {
  return textOf(headers_[block]);
}

std::uint32_t CatalogueFile::blockAt(std::uint32_t line) const {
  const auto behind =
      std::upper_bound(blocks_.begin(), blocks_.end(), line,
                       [](std::uint32_t at, const Block& block) { return at < block.firstLine; });
  if (behind == blocks_.begin()) return kNone;
  auto index = static_cast<std::uint32_t>(behind - blocks_.begin() - 1);
  while (index != kNone && blocks_[index].lastLine < line) index = blocks_[index].parent;
  return index;
}

std::uint32_t CatalogueFile::outermost(std::uint32_t block) const {
  while (blocks_[block].parent != kNone) block = blocks_[block].parent;
  return block;
}

std::span<const CatalogueFile::Use> CatalogueFile::usesIn(std::uint32_t block) const {
  const auto first = std::lower_bound(uses_.begin(), uses_.end(), blocks_[block].firstLine,
                                      [](const Use& use, std::uint32_t line) { return use.line < line; });
  const auto behind = std::upper_bound(first, uses_.end(), blocks_[block].lastLine,
                                       [](std::uint32_t line, const Use& use) { return line < use.line; });
  return {first, behind};
}

std::vector<CatalogueFile::NameId> CatalogueFile::spellings(SpaceId space, std::string_view name) const {
  return spellings(space, name, FoldedHash(name));
}

std::vector<CatalogueFile::NameId> CatalogueFile::spellings(SpaceId space, std::string_view name,
                                                            std::uint64_t hash) const {
  std::vector<NameId> found;
  const auto wanted = static_cast<std::uint32_t>(hash);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = wanted & mask; slots_[at] != kNone; at = (at + 1) & mask) {
    const Name& each = names_[slots_[at]];
    if (each.hash == wanted && (space == kNoSpace || each.space == space) &&
        EqualFolded(textOf(each.text), name))
      found.push_back(slots_[at]);
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace korvane
