// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/WritingPlace.h"

#include <algorithm>
#include <array>
#include <optional>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::array<std::string_view, 2> kChoice = {"Yes", "No"};

std::size_t StartOfLastLine(std::string_view text) {
  return text.find_last_of(kLineEnds) + 1;  // 0 without any
}

bool IsYesOrNo(std::string_view word) {
  return std::ranges::any_of(kChoice, [word](std::string_view each) { return EqualFolded(each, word); });
}

// In the first column, as the structure's reader closes whatever is open before it.
bool IsNamedHeader(std::string_view line) {
  const auto end = static_cast<std::size_t>(std::ranges::find_if(line, SeparatesWords) - line.begin());
  if (end == 0 || end == line.size()) return false;
  const GameStructure& structure = GameStructure::get();
  const BlockTypeId type = structure.child(kOutsideBlocks, line.substr(0, end));
  if (type == kNoBlockType || structure.type(type).mostWords == 0) return false;
  const std::string_view rest = line.substr(end);
  const auto word =
      std::ranges::find_if(rest, [](char byte) { return static_cast<unsigned char>(byte) > ' '; });
  if (word == rest.end() || *word == '=' || *word == ';') return false;
  return !rest.substr(static_cast<std::size_t>(word - rest.begin())).starts_with("//");
}

bool InComment(std::string_view line) {
  if (line.find(';') != line.npos) return true;
  for (std::size_t at = line.find("//"); at != line.npos; at = line.find("//", at + 1)) {
    if (at == 0 || SeparatesWords(line[at - 1])) return true;
  }
  return false;
}

bool InQuotes(std::string_view line) {
  return std::ranges::count(line, '"') % 2 != 0;
}

// Follows which blocks are open before the last line, and notes what that line is.
class PlaceFinder : public StructureSink {
 public:
  explicit PlaceFinder(std::size_t lastLine) : lastLine_(lastLine) {}

  void blockBegins(const BlockHeader& block) override {
    if (block.lineOffset < lastLine_) {
      if (!open_.empty()) open_.back().lines.push_back(block.keyword.text);
      open_.push_back({block.type, {}});
    } else {
      facts_ = GameStructure::get().header(block.type);
      valueColumn_ = block.wordsColumn;
    }
  }

  void keyFound(const KeyLine& key) override {
    if (key.place.offset >= lastLine_) {
      facts_ = key.facts;
      valueColumn_ = key.valueColumn;
    } else if (!open_.empty()) {
      open_.back().lines.push_back(key.key.text);
    }
  }

  // What the last line or the end of the text closes is still open at the place.
  void blockEnds(const BlockHeader& block, const BlockEnd& end) override {
    const bool isBefore = end.place.offset < lastLine_ && block.lineOffset < lastLine_;
    if (isBefore) open_.pop_back();
  }

  void fill(WritingPlace& place) const {
    if (open_.empty()) return;
    place.block = open_.back().type;
    place.linesBefore = open_.back().lines;
  }
  const KeyFacts* facts() const { return facts_; }
  std::size_t valueColumn() const { return valueColumn_; }

 private:
  struct Open {
    BlockTypeId type;
    std::vector<std::string_view> lines;
  };
  std::size_t lastLine_;
  std::vector<Open> open_;
  const KeyFacts* facts_ = nullptr;
  std::size_t valueColumn_ = 1;
};

void FillValue(WritingPlace& place, std::string_view line, std::size_t valueColumn) {
  const std::size_t begin = std::min(valueColumn - 1, line.size());
  const std::size_t typed = line.size() - place.typed.size();
  WordReader words(line.substr(begin, typed - std::min(begin, typed)), 1);
  for (TextWord word = words.next(); !word.text.empty(); word = words.next()) {
    place.wordsBefore.push_back(word.text);
  }
  place.part = WritingPlace::Part::value;
}

// What is typed of a name that the place may hold by this reference; nothing when it holds none.
std::optional<std::string_view> TypedBy(const Reference& reference, const WritingPlace& place) {
  const std::size_t word = place.wordsBefore.size() + 1;
  const std::string_view label = reference.label;
  if (label.empty()) {
    const bool here = word == reference.first || (reference.more && word > reference.first);
    return here ? std::optional(place.typed) : std::nullopt;
  }
  if (EqualFolded(place.typed.substr(0, label.size()), label)) return place.typed.substr(label.size());
  if (word > 1 && EqualFolded(place.wordsBefore.back(), label)) return place.typed;
  return std::nullopt;
}

}  // namespace

bool IsChoice(const KeyFacts& facts) {
  return !facts.words.empty() && std::ranges::all_of(facts.words, IsYesOrNo);
}

std::vector<TypedName> NamesAt(const WritingPlace& place) {
  std::vector<TypedName> names;
  if (place.part != WritingPlace::Part::value) return names;
  for (const Reference& reference : place.facts->references) {
    if (const auto typed = TypedBy(reference, place)) names.push_back({reference.space, *typed});
  }
  return names;
}

std::string_view FromLastHeader(std::string_view text) {
  std::size_t begin = StartOfLastLine(text);
  while (begin > 0) {
    const std::string_view before = text.substr(0, begin - 1);
    begin = StartOfLastLine(before);
    if (IsNamedHeader(before.substr(begin))) return text.substr(begin);
  }
  return text;
}

WritingPlace PlaceBehind(std::string_view text) {
  text = FromLastHeader(text);
  const std::size_t lastLine = StartOfLastLine(text);
  const std::string_view line = text.substr(lastLine);
  WritingPlace place;
  if (InComment(line) || InQuotes(line)) return place;
  PlaceFinder finder(lastLine);
  ReadStructure(text, finder);
  finder.fill(place);
  const auto behind = std::find_if(line.rbegin(), line.rend(), SeparatesWords).base();
  place.typed = line.substr(static_cast<std::size_t>(behind - line.begin()));
  const bool isFirst =
      std::all_of(line.begin(), behind, [](char byte) { return SeparatesWords(byte) && byte != '='; });
  if (isFirst) {
    place.part = WritingPlace::Part::firstWord;
  } else if (finder.facts() != nullptr) {
    place.facts = finder.facts();
    FillValue(place, line, finder.valueColumn());
  }
  return place;
}

}  // namespace korvane
