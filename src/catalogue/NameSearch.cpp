// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/NameSearch.h"

#include <algorithm>
#include <bitset>
#include <span>
#include <tuple>
#include <utility>

#include "catalogue/FoldedText.h"

namespace korvane {

namespace {

using KindSet = std::bitset<256>;

KindSet WantedKinds(const std::vector<KindId>& kinds) {
  KindSet wanted;
  if (kinds.empty()) wanted.set();
  for (const KindId kind : kinds) wanted.set(kind);
  return wanted;
}

// Nothing behind the last matching letters begins another word.
bool FitsInLastWord(const NameMatcher& matcher, std::string_view name) {
  const std::vector<NamePart> parts = matcher.parts(name);
  if (parts.empty()) return false;
  const std::string_view rest = name.substr(parts.back().begin + parts.back().size);
  return std::all_of(rest.begin(), rest.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

class BetterHit {
 public:
  bool operator()(const NameHit& a, const NameHit& b) const {
    const auto first = order(a), second = order(b);
    if (first != second) return first < second;
    const FoundDefinition &here = a.definition, &there = b.definition;
    if (a.inLastWord != b.inLastWord) return a.inLastWord;
    if (here.name.size() != there.name.size()) return here.name.size() < there.name.size();
    if (!EqualFolded(here.name, there.name)) return LessFolded(here.name, there.name);
    if (here.file != there.file) return LessFolded(here.file->source().path, there.file->source().path);
    return here.line < there.line;
  }

  // Whatever else is to be said of the two.
  bool surely(const NameHit& a, const NameHit& b) const { return order(a) < order(b); }

 private:
  std::tuple<bool, bool, bool, MatchRank> order(const NameHit& hit) const {
    const Kind& kind = kinds_[hit.definition.kind];
    return {hit.rank != MatchRank::exact, !kind.editor, kind.space != objects_, hit.rank};
  }

  std::span<const Kind> kinds_ = GameStructure::get().kinds();
  SpaceId objects_ = GameStructure::get().space("Object");
};

// Keeps the best of all hits, so that one letter, which fits nearly every name, costs no more than many.
class BestHits {
 public:
  BestHits(const NameMatcher& matcher, std::size_t most) : matcher_(matcher), most_(most) {}

  void add(NameHit hit) {
    ++all_;
    const bool full = hits_.size() == most_;
    if (full && (hits_.empty() || better_.surely(hits_.front(), hit))) return;
    hit.inLastWord = FitsInLastWord(matcher_, hit.definition.name);
    if (full && !better_(hit, hits_.front())) return;
    if (full) {
      std::ranges::pop_heap(hits_, better_);
      hits_.pop_back();
    }
    hits_.push_back(hit);
    std::ranges::push_heap(hits_, better_);
  }

  NameHits take() {
    std::ranges::sort_heap(hits_, better_);
    return {std::move(hits_), all_};
  }

 private:
  const NameMatcher& matcher_;
  const std::size_t most_;
  const BetterHit better_;
  std::vector<NameHit> hits_;  // a heap, the worst one first
  std::size_t all_ = 0;
};

}  // namespace

NameHits SearchNames(const Catalogue& catalogue, const NameSearch& search) {
  const NameMatcher matcher(search.pattern);
  const KindSet wanted = WantedKinds(search.kinds);
  BestHits best(matcher, search.most);
  for (const auto& file : catalogue.files())
    for (const CatalogueFile::Definition& definition : file->definitions())
      if (wanted[definition.kind])
        if (const auto rank = matcher.rank(file->name(definition.name)))
          best.add({FoundIn(*file, definition), *rank});
  return best.take();
}

}  // namespace korvane
