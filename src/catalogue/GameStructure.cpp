// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/GameStructure.h"

#include <algorithm>
#include <array>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureMaker.h"

namespace korvane {

namespace {

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The word as a member of a series, "Rider#" for "Rider12"; empty when it is none.
class SeriesWord {
 public:
  explicit SeriesWord(std::string_view word) {
    const std::size_t digits = word.find_last_not_of("0123456789") + 1;
    if (word.empty() || !IsDigit(word.back()) || digits == 0 || digits >= text_.size()) return;
    std::copy_n(word.begin(), digits, text_.begin());
    text_[digits] = '#';
    size_ = digits + 1;
  }
  std::string_view text() const { return {text_.data(), size_}; }

 private:
  std::array<char, 64> text_;
  std::size_t size_ = 0;
};

}  // namespace

const GameStructure& GameStructure::get() {
  static const GameStructure structure = StructureMaker::make();
  return structure;
}

// Where the word stands in the table, or where it would.
std::size_t GameStructure::placeOf(const Entries& table, BlockTypeId scope, std::string_view word,
                                   std::uint64_t hash) {
  const std::size_t mask = table.size() - 1;
  std::size_t at = (hash ^ (scope * std::uint64_t{0x9E3779B1})) & mask;
  while (table[at].scope != kNoBlockType && (table[at].scope != scope || !EqualFolded(table[at].word, word)))
    at = (at + 1) & mask;
  return at;
}

// The word, or the series that it is a member of.
const GameStructure::Entry* GameStructure::entryOf(BlockTypeId scope, std::string_view word,
                                                   std::uint64_t hash) const {
  const Entry& found = words_[placeOf(words_, scope, word, hash)];
  if (found.scope != kNoBlockType) return &found;
  if (word.empty() || !IsDigit(word.back())) return nullptr;
  const SeriesWord series(word);
  const Entry& member = words_[placeOf(words_, scope, series.text(), FoldedHash(series.text()))];
  return member.scope == kNoBlockType ? nullptr : &member;
}

WordMeaning GameStructure::meaning(BlockTypeId type, std::string_view word) const {
  const std::uint64_t hash = FoldedHash(word);
  for (; type != kNoBlockType; type = types_[type].general)
    if (const Entry* found = entryOf(type, word, hash))
      return {found->child, found->key == kNoKey ? nullptr : &keys_[found->key]};
  return {};
}

KindId GameStructure::kind(std::string_view name) const {
  const BlockTypeId type = child(kOutsideBlocks, name);
  return type == kNoBlockType ? kNoKind : types_[type].kind;
}

SpaceId GameStructure::space(std::string_view name) const {
  const auto found =
      std::find_if(spaces_.begin(), spaces_.end(), [&](auto space) { return EqualFolded(space, name); });
  if (found != spaces_.end()) return static_cast<SpaceId>(found - spaces_.begin());
  const auto kind = std::find_if(kinds_.begin(), kinds_.end(),
                                 [&](const Kind& each) { return EqualFolded(each.name, name); });
  return kind == kinds_.end() ? kNoSpace : kind->space;
}

KindId GameStructure::kindOfSpace(SpaceId space) const {
  const auto named = std::find_if(kinds_.begin(), kinds_.end(), [&](const Kind& each) {
    return each.space == space && each.name == spaces_[space];
  });
  if (named != kinds_.end()) return static_cast<KindId>(named - kinds_.begin());
  const auto first =
      std::find_if(kinds_.begin(), kinds_.end(), [&](const Kind& each) { return each.space == space; });
  return first == kinds_.end() ? kNoKind : static_cast<KindId>(first - kinds_.begin());
}

bool GameStructure::isSpecial(std::string_view word, SpaceId space) const {
  return std::any_of(special_.begin(), special_.end(), [&](const auto& special) {
    return (special.second == kNoSpace || special.second == space) && EqualFolded(special.first, word);
  });
}

std::vector<std::string_view> GameStructure::specialWords(SpaceId space) const {
  std::vector<std::string_view> words;
  for (const auto& [word, where] : special_) {
    if (where == kNoSpace || where == space) words.push_back(word);
  }
  return words;
}

BlockTypeId GameStructure::withModule(BlockTypeId type, std::string_view module) const {
  const Entry& found = modules_[placeOf(modules_, type, module, FoldedHash(module))];
  return found.scope == kNoBlockType ? type : found.child;
}

std::vector<const KeyFacts*> GameStructure::keysOf(BlockTypeId type) const {
  std::vector<const KeyFacts*> keys;
  for (BlockTypeId scope = type; scope != kNoBlockType; scope = types_[scope].general)
    for (const Entry& each : words_)
      if (each.scope == scope && each.key != kNoKey && keys_[each.key].known)
        keys.push_back(&keys_[each.key]);
  std::sort(keys.begin(), keys.end(), [](auto* a, auto* b) { return a->id < b->id; });
  return keys;
}

std::vector<BlockTypeId> GameStructure::childrenOf(BlockTypeId type) const {
  std::vector<BlockTypeId> children;
  const auto isNew = [&](const BlockType& each) {
    return std::none_of(children.begin(), children.end(),
                        [&](BlockTypeId child) { return types_[child].keyword == each.keyword; });
  };
  for (BlockTypeId scope = type; scope != kNoBlockType; scope = types_[scope].general)
    for (const BlockType& each : types_)
      if (each.parent == scope && isNew(each)) children.push_back(child(type, each.keyword));
  return children;
}

}  // namespace korvane
