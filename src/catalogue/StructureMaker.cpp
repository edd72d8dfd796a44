// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/StructureMaker.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <stdexcept>

#include "catalogue/FoldedText.h"

namespace korvane {

namespace {

constexpr std::uint8_t kAnyNumber = 255;
constexpr std::string_view kAnyModule = "=*";

template <typename Value>
struct Named {
  std::string_view name;
  Value value;
};

constexpr Named<Again> kAgain[] = {
    {"", Again::nothing}, {"warning", Again::warning}, {"error", Again::error}};
constexpr Named<ValueType> kValueTypes[] = {{"word", ValueType::word},
                                            {"name", ValueType::name},
                                            {"number", ValueType::number},
                                            {"labelled", ValueType::labelled}};
constexpr Named<Repeat> kRepeats[] = {{"", Repeat::unknown}, {"once", Repeat::once}, {"many", Repeat::many}};
constexpr Named<bool> kYes[] = {{"", false}, {"yes", true}};
constexpr Named<bool> kSigns[] = {{"none", false}, {"either", true}};
constexpr Named<Outside> kOutside[] = {{"animation", Outside::animation}, {"bone", Outside::bone},
                                       {"file", Outside::file},           {"label", Outside::label},
                                       {"model", Outside::model},         {"sound", Outside::sound},
                                       {"texture", Outside::texture},     {"window", Outside::window}};

[[noreturn]] void Fail(std::string_view what) {
  throw std::logic_error("the tables of the game's structure do not know \"" + std::string(what) + '"');
}

template <typename Value, std::size_t N>
Value ValueOf(const Named<Value> (&table)[N], std::string_view name) {
  const auto* found = std::find_if(table, table + N, [&](const auto& entry) { return entry.name == name; });
  if (found == table + N) Fail(name);
  return found->value;
}

std::uint8_t NumberOf(std::string_view text) {
  std::uint8_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) Fail(text);
  return number;
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldedByte);
  return folded;
}

// "Object/Draw=X/ConditionState" becomes "Object/Draw=*/ConditionState".
std::string GeneralPath(std::string_view path) {
  const std::size_t sign = path.find('=');
  if (sign == std::string_view::npos) return std::string(path);
  const std::size_t behind = std::min(path.find('/', sign), path.size());
  return std::string(path.substr(0, sign)) + std::string(kAnyModule) + std::string(path.substr(behind));
}

// The member of a series as the tables name it: "Rider12" becomes "Rider#".
std::string SeriesOf(std::string_view key) {
  const std::size_t digits = key.find_last_not_of("0123456789") + 1;
  return std::string(key.substr(0, digits)) + '#';
}

bool IsOfHeader(const KeyFacts& facts) {
  return facts.key.starts_with('<');
}

template <typename Take>
void ForEachPart(std::string_view text, char separator, Take&& take) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    take(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

bool Lists(std::string_view names, std::string_view name) {
  bool found = names.empty();
  ForEachPart(names, ',', [&](std::string_view part) { found = found || part == name; });
  return found;
}

Reference ReferenceOf(const ReferenceRow& row, SpaceId space) {
  if (row.position.back() == ':') return {.space = space, .label = row.position};
  return {.space = space, .first = NumberOf(row.position), .more = row.position.back() == '+'};
}

}  // namespace

GameStructure StructureMaker::make() {
  StructureMaker maker;
  maker.addKinds();
  maker.addBlocks();
  maker.addTypesOfKeys();
  maker.addGeneralFacts();
  maker.addKeys();
  maker.setHeaders();
  maker.fillTables();
  return std::move(maker.made_);
}

void StructureMaker::addKinds() {
  addType({});
  for (const KindRow& row : KindRows()) {
    const auto kind = static_cast<KindId>(made_.kinds_.size());
    const std::uint8_t names = NumberOf(row.names);
    const BlockTypeId type = addType({.path = std::string(row.kind),
                                      .keyword = row.kind,
                                      .parent = kOutsideBlocks,
                                      .kind = kind,
                                      .fewestWords = names,
                                      .mostWords = names});
    made_.kinds_.push_back(
        {row.kind, names, addSpace(row.space), ValueOf(kAgain, row.again), ValueOf(kYes, row.editor), type});
  }
  for (const KindRow& row : KindRows())
    if (!row.like.empty()) made_.types_[typeAt(row.kind)].general = typeAt(row.like);
  for (const SpecialRow& row : SpecialRows()) made_.special_.emplace_back(row.word, made_.space(row.space));
}

void StructureMaker::addBlocks() {
  for (const BlockRow& row : BlockRows()) {
    const bool module = row.keyword.ends_with(kAnyModule);
    const std::string_view keyword = row.keyword.substr(0, row.keyword.size() - (module ? 2 : 0));
    const std::uint8_t words = NumberOf(row.words);
    addType({.path = std::string(row.parent) + '/' + std::string(row.keyword),
             .keyword = keyword,
             .module = module ? "*" : "",
             .parent = typeAt(row.parent),
             .general = row.like.empty() ? kNoBlockType : typeAt(row.like),
             .signAllowed = ValueOf(kSigns, row.sign),
             .moduleFollows = module,
             .fewestWords = words,
             .mostWords = row.words.ends_with('+') ? kAnyNumber : words});
  }
}

void StructureMaker::addTypesOfKeys() {
  for (const KeyRow& row : KeyRows()) ensureType(std::string(row.path));
}

SpaceId StructureMaker::addSpace(std::string_view name) {
  if (name.empty()) return kNoSpace;
  auto& spaces = made_.spaces_;
  const auto found = std::find(spaces.begin(), spaces.end(), name);
  const auto id = static_cast<SpaceId>(found - spaces.begin());
  if (found == spaces.end()) spaces.push_back(name);
  return id;
}

BlockTypeId StructureMaker::addType(BlockType type) {
  const auto id = static_cast<BlockTypeId>(made_.types_.size());
  byPath_.emplace(type.path, id);
  made_.types_.push_back(std::move(type));
  return id;
}

BlockTypeId StructureMaker::typeAt(std::string_view path) const {
  const auto found = byPath_.find(path);
  if (found == byPath_.end()) Fail(path);
  return found->second;
}

// Blocks with a module, and those inside of them, are known first of all as blocks with any module.
BlockTypeId StructureMaker::ensureType(const std::string& path) {
  if (const auto found = byPath_.find(path); found != byPath_.end()) return found->second;
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) Fail(path);
  const BlockTypeId parent = ensureType(path.substr(0, slash));
  return addType(refined(path, parent, typeAt(GeneralPath(path))));
}

BlockType StructureMaker::refined(const std::string& path, BlockTypeId parent, BlockTypeId general) const {
  BlockType type = made_.types_[general];
  type.path = path;
  type.parent = parent;
  type.general = general;
  if (type.moduleFollows) {
    // A view of the table, which outlives the path.
    const auto row = std::find_if(KeyRows().begin(), KeyRows().end(),
                                  [&](const KeyRow& key) { return key.path.starts_with(path); });
    type.module = row->path.substr(0, path.size()).substr(path.rfind('=') + 1);
  }
  return type;
}

KeyFacts& StructureMaker::factsAt(BlockTypeId type, std::string_view key) {
  const auto id = static_cast<KeyId>(made_.keys_.size());
  const auto [place, isNew] = keyAt_.emplace(KeyPlace(type, Folded(key)), id);
  if (isNew) made_.keys_.push_back({.key = key, .id = id});
  return made_.keys_[place->second];
}

// What the tables say of places of any module. References of certain modules wait for those.
void StructureMaker::addGeneralFacts() {
  for (const LineRow& row : LineRows()) factsAt(kOutsideBlocks, row.key).known = true;
  for (const ReferenceRow& row : ReferenceRows())
    references_.emplace(KeyPlace(typeAt(row.path), Folded(row.key)), &row);
  for (const WordsRow& row : WordsRows()) words_.emplace(KeyPlace(typeAt(row.path), Folded(row.key)), &row);
  for (const LeadingRow& row : LeadingRows())
    leading_.emplace(KeyPlace(typeAt(row.path), Folded(row.key)), &row);
  for (const OutsideRow& row : OutsideRows())
    outside_.emplace(KeyPlace(typeAt(row.path), Folded(row.key)), &row);
  const auto inheritAll = [this](const auto& rows) {
    for (const auto& [place, row] : rows)
      if (!keyAt_.contains(place)) inherit(factsAt(place.first, row->key), place.first, row->key, {});
  };
  inheritAll(references_);
  inheritAll(words_);
  inheritAll(leading_);
  inheritAll(outside_);
}

void StructureMaker::inherit(KeyFacts& facts, BlockTypeId from, std::string_view key,
                             std::string_view module) {
  const KeyPlace place(from, Folded(key));
  for (auto [row, end] = references_.equal_range(place); row != end; ++row)
    if (Lists(row->second->modules, module))
      facts.references.push_back(ReferenceOf(*row->second, made_.space(row->second->space)));
  if (const auto row = words_.find(place); row != words_.end()) facts.words = wordList(row->second->words);
  for (auto [row, end] = leading_.equal_range(place); row != end; ++row)
    if (Lists(row->second->modules, module))
      facts.leading.push_back({NumberOf(row->second->position), wordList(row->second->words)});
  if (const auto row = outside_.find(place); row != outside_.end())
    facts.outside = ValueOf(kOutside, row->second->what);
}

std::span<const std::string_view> StructureMaker::wordList(std::string_view words) {
  const auto [place, isNew] = lists_.emplace(words.data(), std::span<const std::string_view>());
  if (isNew) {
    std::vector<std::string_view>& list = made_.wordLists_.emplace_back();
    ForEachPart(words, ' ', [&](std::string_view word) { list.push_back(word); });
    place->second = list;
  }
  return place->second;
}

void StructureMaker::addKeys() {
  for (const KeyRow& row : KeyRows()) addKey(row);
}

void StructureMaker::addKey(const KeyRow& row) {
  const BlockTypeId type = typeAt(row.path);
  KeyFacts& facts = factsAt(type, row.key);
  facts.known = true;
  facts.common = ValueOf(kYes, row.common);
  facts.form = ValueOf(kYes, row.form);
  facts.type = ValueOf(kValueTypes, row.type);
  facts.numbers = NumberOf(row.numbers);
  facts.repeat = ValueOf(kRepeats, row.repeat);
  const BlockTypeId general = made_.types_[type].general;
  if (general == kNoBlockType) return;
  inherit(facts, general, row.key, made_.types_[type].module);
  inherit(facts, general, SeriesOf(row.key), made_.types_[type].module);
}

void StructureMaker::setHeaders() {
  made_.headers_.assign(made_.types_.size(), nullptr);
  for (const auto& [place, id] : keyAt_)
    if (IsOfHeader(made_.keys_[id])) made_.headers_[place.first] = &made_.keys_[id];
  for (std::size_t i = 0; i < made_.types_.size(); ++i) {
    const BlockTypeId general = made_.types_[i].general;
    if (made_.headers_[i] == nullptr && general != kNoBlockType) made_.headers_[i] = made_.headers_[general];
  }
}

void StructureMaker::fillTables() {
  using Entries = GameStructure::Entries;
  const std::size_t size = std::bit_ceil(2 * (made_.types_.size() + keyAt_.size()));
  made_.words_.assign(size, {});
  made_.modules_.assign(size, {});
  const auto entry = [](Entries & table, BlockTypeId scope, std::string_view word) -> auto& {
    auto& found = table[GameStructure::placeOf(table, scope, word, FoldedHash(word))];
    found.scope = scope;
    found.word = word;
    return found;
  };
  for (std::size_t i = 1; i < made_.types_.size(); ++i) {
    const BlockType& type = made_.types_[i];
    const auto id = static_cast<BlockTypeId>(i);
    const bool precise = type.moduleFollows && type.module != "*";
    if (precise) {
      entry(made_.modules_, type.general, type.module).child = id;
    } else {
      entry(made_.words_, type.parent, type.keyword).child = id;
    }
  }
  for (const auto& [place, id] : keyAt_)
    if (!IsOfHeader(made_.keys_[id])) entry(made_.words_, place.first, made_.keys_[id].key).key = id;
}

}  // namespace korvane
