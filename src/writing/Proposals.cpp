// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/Proposals.h"

#include <algorithm>
#include <array>
#include <deque>
#include <optional>
#include <tuple>

#include "catalogue/FoldedText.h"
#include "catalogue/NameMatcher.h"
#include "catalogue/SourceFiles.h"
#include "writing/WritingPlace.h"

namespace korvane {

namespace {

using Kind = Proposal::Kind;

constexpr std::array<std::string_view, 2> kYesAndNo = {"Yes", "No"};
constexpr std::string_view kEnd = "End";
constexpr std::string_view kModule = "<module>";

// Gathers what fits the typed text.
class Gathering {
 public:
  explicit Gathering(std::string_view typed) : matcher_(typed), empty_(typed.empty()) {}

  // `order` counts among proposals that fit equally well, as long as nothing is typed.
  void add(std::string_view text, Kind kind, KindId item = kNoKind, std::size_t order = 0) {
    if (const auto rank = matcher_.rank(text))
      found_.push_back({*rank, empty_ ? order : 0, text, kind, item});
  }
  // The same for a text that nobody else holds.
  void addOwn(std::string text, Kind kind) { add(texts_.emplace_back(std::move(text)), kind); }

  std::vector<Proposal> best(std::size_t most) {
    std::vector<Proposal> list;
    auto next = found_.begin();
    while (next != found_.end() && list.size() < most) {
      const auto left = static_cast<std::size_t>(found_.end() - next);
      const auto end = next + static_cast<std::ptrdiff_t>(std::min(left, most - list.size()));
      std::partial_sort(next, end, found_.end());
      for (; next != end; ++next) {
        if (list.empty() || list.back().text != next->text) {
          list.push_back({std::string(next->text), next->kind, next->item});
        }
      }
    }
    return list;
  }

 private:
  struct Candidate {
    MatchRank rank;
    std::size_t order;
    std::string_view text;
    Kind kind;
    KindId item;

    bool operator<(const Candidate& other) const {
      if (rank != other.rank || order != other.order) {
        return std::tie(rank, order) < std::tie(other.rank, other.order);
      }
      if (!EqualFolded(text, other.text)) return LessFolded(text, other.text);
      return text < other.text;
    }
  };

  NameMatcher matcher_;
  bool empty_;
  std::vector<Candidate> found_;
  std::deque<std::string> texts_;
};

// "Rider#" as the first of its series that the block does not have yet.
std::string NextOfSeries(std::string_view series, const std::vector<std::string_view>& taken) {
  const std::string_view stem = series.substr(0, series.size() - 1);
  for (int number = 1;; ++number) {
    std::string word = std::string(stem) + std::to_string(number);
    if (std::ranges::none_of(taken, [&](std::string_view each) { return EqualFolded(each, word); }))
      return word;
  }
}

void AddWord(Gathering& gathering, const WritingPlace& place, std::string_view word, Kind kind) {
  if (word.ends_with('#')) {
    gathering.addOwn(NextOfSeries(word, place.linesBefore), kind);
  } else {
    gathering.add(word, kind, kNoKind, 1);
  }
}

void AddFirstWords(Gathering& gathering, const WritingPlace& place) {
  const GameStructure& structure = GameStructure::get();
  if (place.block != kOutsideBlocks) gathering.add(kEnd, Kind::end);
  for (const KeyFacts* facts : structure.keysOf(place.block))
    AddWord(gathering, place, facts->key, Kind::key);
  for (const BlockTypeId child : structure.childrenOf(place.block)) {
    AddWord(gathering, place, structure.type(child).keyword, Kind::block);
  }
}

std::span<const std::string_view> LeadingAt(const KeyFacts& facts, std::size_t position) {
  const auto found = std::ranges::find(facts.leading, position, &LeadingWords::position);
  return found == facts.leading.end() ? std::span<const std::string_view>() : found->words;
}

bool Leads(const KeyFacts& facts, std::string_view word) {
  return std::ranges::any_of(facts.leading, [word](const LeadingWords& each) {
    return std::ranges::find(each.words, word) != each.words.end();
  });
}

void AddLeading(Gathering& gathering, std::span<const std::string_view> words) {
  std::size_t order = 0;
  for (const std::string_view word : words) gathering.add(word, Kind::word, kNoKind, order++);
}

// Words that stand in the value already are not proposed again; of a module or a choice there is one only.
void AddWords(Gathering& gathering, const WritingPlace& place) {
  const auto leading = LeadingAt(*place.facts, place.wordsBefore.size() + 1);
  if (!leading.empty()) return AddLeading(gathering, leading);
  std::span<const std::string_view> words = place.facts->words;
  if (words.empty()) return;
  const bool choice = IsChoice(*place.facts);
  if (choice) words = kYesAndNo;
  if ((choice || place.facts->key == kModule) && !place.wordsBefore.empty()) return;
  std::size_t order = 0;
  for (const std::string_view word : words) {
    const bool isThere = std::ranges::find(place.wordsBefore, word) != place.wordsBefore.end();
    if (!isThere && !Leads(*place.facts, word)) gathering.add(word, Kind::word, kNoKind, order++);
  }
}

constexpr std::size_t kBehindWords = 1000;  // more than any list of words has

void AddNames(Gathering& gathering, SpaceId space, const KnownNames& names) {
  const GameStructure& structure = GameStructure::get();
  for (const std::string_view word : structure.specialWords(space)) {
    gathering.add(word, Kind::word, kNoKind, kBehindWords);
  }
  for (const ItemName& own : names.own) {
    if (structure.kinds()[own.kind].space == space)
      gathering.add(own.name, Kind::name, own.kind, kBehindWords);
  }
  if (names.catalogue == nullptr) return;
  const CatalogueFile* shown = names.path.empty() ? nullptr : names.catalogue->file(names.path);
  for (const auto& file : names.catalogue->files()) {
    if (file.get() == shown) continue;
    for (const CatalogueFile::Definition& each : file->definitions()) {
      if (file->space(each.name) == space) {
        gathering.add(file->name(each.name), Kind::name, each.kind, kBehindWords);
      }
    }
  }
}

}  // namespace

Proposals Propose(std::string_view text, const KnownNames& names, std::size_t most) {
  const WritingPlace place = PlaceBehind(text);
  std::string_view typed = place.typed;
  const std::vector<TypedName> wanted = NamesAt(place);
  if (!wanted.empty()) typed = wanted.front().typed;
  Gathering gathering(typed);
  if (place.part == WritingPlace::Part::firstWord) AddFirstWords(gathering, place);
  if (place.part == WritingPlace::Part::value) AddWords(gathering, place);
  for (const TypedName& name : wanted) AddNames(gathering, name.space, names);
  return {typed.size(), gathering.best(most)};
}

}  // namespace korvane
