// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/NameSearch.h"

#include <algorithm>
#include <bitset>
#include <span>
#include <tuple>

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
    if (!EqualFolded(here.name, there.name)) return LessFolded(here.name, there.name);
    if (here.file != there.file) return LessFolded(here.file->source().path, there.file->source().path);
    return here.line < there.line;
  }

 private:
  std::tuple<bool, bool, bool, MatchRank, bool, std::size_t> order(const NameHit& hit) const {
    const Kind& kind = kinds_[hit.definition.kind];
    return {hit.rank != MatchRank::exact, !kind.editor, kind.space != objects_, hit.rank, !hit.inLastWord,
            hit.definition.name.size()};
  }

  std::span<const Kind> kinds_ = GameStructure::get().kinds();
  SpaceId objects_ = GameStructure::get().space("Object");
};

}  // namespace

NameHits SearchNames(const Catalogue& catalogue, const NameSearch& search) {
  const NameMatcher matcher(search.pattern);
  const KindSet wanted = WantedKinds(search.kinds);
  NameHits found;
  for (const auto& file : catalogue.files())
    for (const CatalogueFile::Definition& definition : file->definitions())
      if (wanted[definition.kind])
        if (const auto rank = matcher.rank(file->name(definition.name)))
          found.hits.push_back(
              {FoundIn(*file, definition), *rank, FitsInLastWord(matcher, file->name(definition.name))});
  found.all = found.hits.size();
  const std::size_t most = std::min(search.most, found.all);
  std::partial_sort(found.hits.begin(), found.hits.begin() + static_cast<std::ptrdiff_t>(most),
                    found.hits.end(), BetterHit());
  found.hits.resize(most);
  return found;
}

}  // namespace korvane
