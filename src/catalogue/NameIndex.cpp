// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/NameIndex.h"

#include <algorithm>
#include <tuple>

#include "catalogue/FoldedText.h"

namespace korvane {

NameIndex::NameIndex(const Catalogue& catalogue) : catalogue_(catalogue) {
  for (std::uint32_t i = 0; i < catalogue.files().size(); ++i) {
    const CatalogueFile& file = *catalogue.files()[i];
    for (CatalogueFile::NameId id = 0; id < file.nameCount(); ++id)
      entries_.push_back({FoldedHash(file.name(id)), i, id});
  }
  std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
    return std::tie(a.hash, a.file, a.name) < std::tie(b.hash, b.file, b.name);
  });
}

// Calls `take(file, id)` for every spelling in every file, until it gives false.
template <typename Take>
void NameIndex::forEach(SpaceId space, std::string_view name, Take take) const {
  const std::uint64_t hash = FoldedHash(name);
  auto entry = std::lower_bound(entries_.begin(), entries_.end(), hash,
                                [](const Entry& each, std::uint64_t wanted) { return each.hash < wanted; });
  for (; entry != entries_.end() && entry->hash == hash; ++entry) {
    const CatalogueFile& file = *catalogue_.files()[entry->file];
    const bool isIt =
        (space == kNoSpace || file.space(entry->name) == space) && EqualFolded(file.name(entry->name), name);
    if (isIt && !take(file, entry->name)) return;
  }
}

bool NameIndex::defines(SpaceId space, std::string_view name) const {
  bool found = false;
  forEach(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    found = !file.definitionsOf(id).empty();
    return !found;
  });
  return found;
}

bool NameIndex::uses(SpaceId space, std::string_view name) const {
  bool found = false;
  forEach(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    found = !file.usesOf(id).empty();
    return !found;
  });
  return found;
}

std::vector<FoundDefinition> NameIndex::definitions(SpaceId space, std::string_view name) const {
  std::vector<FoundDefinition> found;
  forEach(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    for (const std::uint32_t index : file.definitionsOf(id))
      found.push_back(FoundIn(file, file.definitions()[index]));
    return true;
  });
  return found;
}

}  // namespace korvane
