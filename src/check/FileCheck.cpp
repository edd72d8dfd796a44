// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/FileCheck.h"

#include <algorithm>
#include <tuple>

#include "catalogue/FoldedText.h"
#include "check/IgnoreComments.h"
#include "files/Windows1252.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::size_t kLongestShown = 120;
constexpr std::size_t kMostNamesCompared = 1'000'000;

bool StandsInFirstColumn(const BlockHeader& block, std::string_view text) {
  const std::size_t behind = block.lineOffset + block.keyword.text.size();
  return block.place.column == 1 && behind < text.size() && text[behind] == ' ' &&
         block.first.column == block.keyword.text.size() + 2;
}

bool HasWordsToCheck(const KeyFacts& facts) {
  return facts.form || !facts.words.empty();
}

}  // namespace

FileCheck::FileCheck(const CheckedFile& file, const CheckContext& context)
    : file_(file), context_(context), blockTexts_(file.known, file.text) {}

std::optional<Findings> FileCheck::run() {
  if (!ReadStructure(file_.text, *this)) return std::nullopt;
  if (!context_.functions.of<NameFunction>().empty()) checkNames();
  for (const TextFunction check : context_.functions.of<TextFunction>()) check(*this);
  FinishFindings(file_, findings_);
  return std::move(findings_);
}

std::span<const GivenKey> FileCheck::given() const {
  if (givenBefore_.empty()) return {};
  return std::span(given_).subspan(givenBefore_.back());
}

std::string_view FileCheck::textOf(const DefinedNames::Definition& definition) {
  return blockTexts_.text(*definition.file, definition.block());
}

Finding& FileCheck::report(RuleId rule, std::uint32_t line, const TextWord& where, std::string text) {
  findings_.push_back(NewFinding(rule, file_.known.source(), line, where, std::move(text)));
  return findings_.back();
}

void FileCheck::blockBegins(const BlockHeader& block) {
  if (block.depth == 0) beginOuter(block);
  outer_.lastContent = block.place.line;
  lastInner_.end = 0;
  givenBefore_.push_back(given_.size());
  if (const KeyFacts* facts = GameStructure::get().header(block.type)) {
    takeWords(block.words, block.wordsColumn);
    checkWords(*facts, block.place.line);
  }
  for (const HeaderFunction check : context_.functions.of<HeaderFunction>()) check(*this, block);
}

void FileCheck::beginOuter(const BlockHeader& block) {
  const GameStructure& structure = GameStructure::get();
  const KindId kind = structure.type(block.type).kind;
  const bool named = structure.kinds()[kind].names > 0;
  outer_ = {.kind = kind,
            .space = named ? structure.kinds()[kind].space : kNoSpace,
            .keyword = block.keyword,
            .name = named ? block.first : TextWord{},
            .line = block.place.line,
            .shown = StandsInFirstColumn(block, file_.text)};
  tags_.clear();
  lacksEnd_.end = 0;
  endsTooSoon_.end = 0;
  astray_ = false;
}

void FileCheck::keyFound(const KeyLine& key) {
  if (key.block != nullptr) {
    outer_.lastContent = key.place.line;
    if (lastInner_.end > 0) checkPlace(key);
  }
  words_.clear();
  if (key.facts != nullptr && HasWordsToCheck(*key.facts)) {
    takeWords(key.value, key.valueColumn);
    checkWords(*key.facts, key.place.line);
  }
  const bool belongsHere = key.block != nullptr && key.facts != nullptr;
  const bool onceOnly = belongsHere && key.facts->repeat == Repeat::once && !key.facts->key.ends_with('#');
  before_ = onceOnly ? findGiven(key) : nullptr;
  for (const KeyFunction check : context_.functions.of<KeyFunction>()) check(*this, key);
  if (onceOnly && before_ == nullptr) {
    given_.push_back({key.key, {key.value, key.valueColumn}, key.place.line});
    facts_.push_back(key.facts);
  }
}

// Keys with the same facts are the same key, but for the members of a series, which are not noted.
const GivenKey* FileCheck::findGiven(const KeyLine& key) const {
  if (givenBefore_.empty()) return nullptr;
  const auto begin = facts_.begin() + static_cast<std::ptrdiff_t>(givenBefore_.back());
  const auto found = std::find(begin, facts_.end(), key.facts);
  return found == facts_.end() ? nullptr : &given_[static_cast<std::size_t>(found - facts_.begin())];
}

std::uint32_t FileCheck::noteTag(std::string_view tag, std::uint32_t line) {
  const auto [noted, isNew] = tags_.try_emplace(ToLowerAscii(tag), line);
  return isNew ? 0 : noted->second;
}

std::string_view FileCheck::nearestName(SpaceId space, std::string_view name) {
  if (space == missingSpace_ && name == missingName_) return nearestName_;
  missingSpace_ = space;
  missingName_ = name;
  namesCompared_ += context_.names.count(space);
  nearestName_ =
      namesCompared_ <= kMostNamesCompared ? context_.names.nearest(space, name) : std::string_view();
  return nearestName_;
}

const std::vector<std::string_view>& FileCheck::commonWords(BlockTypeId type) {
  const auto [known, isNew] = commonWords_.try_emplace(type);
  if (!isNew) return known->second;
  const GameStructure& structure = GameStructure::get();
  for (const KeyFacts* facts : structure.keysOf(type))
    if (facts->common && !facts->key.starts_with('<')) known->second.push_back(facts->key);
  for (const BlockTypeId child : structure.childrenOf(type))
    known->second.push_back(structure.type(child).keyword);
  return known->second;
}

void FileCheck::noteSlant(const BlockHeader& block, const BlockEnd& end) {
  if (!end.closed || end.place.column == block.place.column) return;
  EndedBlock& first = end.place.column < block.place.column ? lacksEnd_ : endsTooSoon_;
  if (first.end == 0) first = {block, end.place.line};
}

void FileCheck::takeWords(std::string_view words, std::uint32_t column) {
  words_.clear();
  WordReader reader(words, column);
  for (TextWord word = reader.next(); !word.text.empty(); word = reader.next()) words_.push_back(word);
}

void FileCheck::checkWords(const KeyFacts& facts, std::uint32_t line) {
  for (const WordsFunction check : context_.functions.of<WordsFunction>()) check(*this, facts, line);
}

// Most files name most items more than once: a name is looked up once for each file.
void FileCheck::checkNames() {
  for (CatalogueFile::NameId id = 0; id < file_.known.nameCount(); ++id) {
    const std::span<const std::uint32_t> uses = file_.known.usesOf(id);
    const SpaceId space = file_.known.space(id);
    if (uses.empty() || !context_.names.hasAny(space)) continue;
    const auto spelling = context_.names.spelling(space, file_.known.name(id), file_.known.hash(id));
    if (spelling == file_.known.name(id)) continue;
    for (const std::uint32_t use : uses) checkUse(file_.known.uses()[use], spelling);
  }
}

void FileCheck::checkUse(const CatalogueFile::Use& use, const std::optional<std::string_view>& spelling) {
  std::string_view key = GameStructure::get().key(use.key).key;
  if (key.starts_with('<')) key = GameStructure::get().type(file_.known.blocks()[use.block].type).keyword;
  const NameUse found{.space = file_.known.space(use.name),
                      .word = {file_.known.name(use.name), use.column},
                      .line = use.line,
                      .key = key,
                      .spelling = spelling};
  for (const NameFunction check : context_.functions.of<NameFunction>()) check(*this, found);
}

void FileCheck::blockEnds(const BlockHeader& block, const BlockEnd& end) {
  if (block.depth > 0 && end.closed && end.place.column == 1 && outer_.innerEnd == 0)
    outer_.innerEnd = end.place.line;
  noteSlant(block, end);
  if (block.depth > 0 && end.closed) lastInner_ = {block, end.place.line};
  for (const BlockFunction check : context_.functions.of<BlockFunction>()) check(*this, block, end);
  given_.resize(givenBefore_.back());
  facts_.resize(givenBefore_.back());
  givenBefore_.pop_back();
  if (block.depth == 0) outerBlocks_.push_back(outer_);
}

// A key that means nothing here, but would in the block that has just been closed: it was closed too soon.
void FileCheck::checkPlace(const KeyLine& key) {
  const GameStructure& structure = GameStructure::get();
  const bool meansNothing = key.facts == nullptr || !key.facts->known;
  const WordMeaning inside = structure.meaning(lastInner_.header.type, key.key.text);
  const bool belongsInside = inside.child != kNoBlockType || (inside.key != nullptr && inside.key->known);
  if (meansNothing && belongsInside && !astray_) {
    endsTooSoon_ = lastInner_;
    faultFound({StructureFault::Kind::looseText, key.place, key.key.text, {}, key.block, false});
    astray_ = true;
  }
  lastInner_.end = 0;
}

void FileCheck::faultFound(const StructureFault& fault) {
  if (astray_ && fault.kind != StructureFault::Kind::openBlock) return;
  for (const FaultFunction check : context_.functions.of<FaultFunction>()) check(*this, fault);
}

std::string FindingPath(const SourceFile& source) {
  std::string path = source.path;
  std::ranges::replace(path, '\\', '/');
  return path;
}

Finding NewFinding(RuleId rule, const SourceFile& source, std::uint32_t line, const TextWord& where,
                   std::string text) {
  const Rule& about = RuleOf(rule);
  const std::size_t name = source.container.find_last_of('\\') + 1;
  return {.code = about.code,
          .level = about.level,
          .file = FindingPath(source),
          .archive = source.archived ? source.container.substr(name) : "",
          .line = static_cast<int>(line),
          .column = static_cast<int>(where.column),
          .length = static_cast<int>(where.text.size()),
          .text = std::move(text)};
}

void FinishFindings(const CheckedFile& file, Findings& findings) {
  if (findings.empty()) return;
  const IgnoreComments comments(file.text, [&file] {
    std::vector<LineRange> blocks;
    for (const CatalogueFile::Block& block : file.known.blocks())
      blocks.push_back({static_cast<int>(block.firstLine), static_cast<int>(block.lastLine)});
    return blocks;
  });
  std::erase_if(findings,
                [&](const Finding& finding) { return comments.silences(finding.code, finding.line); });
  std::ranges::stable_sort(findings, {}, [](const Finding& finding) {
    return std::tie(finding.line, finding.column, finding.code);
  });
}

std::string HeaderText(const BlockHeader& block) {
  const std::string_view between = block.words.empty() ? "" : block.sign ? " = " : " ";
  return Shown(block.keyword.text).append(between) + Shown(block.words);
}

std::string Shown(std::string_view bytes) {
  std::string shown(bytes.substr(0, kLongestShown));
  const auto isControl = [](char c) {
    const char16_t character = CharacterOf(c);
    return character < u' ' || (character >= 0x7F && character < 0xA0);
  };
  std::ranges::replace_if(shown, isControl, ' ');
  return Utf8FromBytes(shown) + (bytes.size() > kLongestShown ? "..." : "");
}

std::string Quoted(std::string_view bytes) {
  return "'" + Shown(bytes) + "'";
}

}  // namespace korvane
