// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/DefinedNames.h"

#include <algorithm>

#include "check/EditDistance.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::size_t kSameLetters = 3;
constexpr std::size_t kMostEdits = 2;

bool Before(const CatalogueFile& a, const CatalogueFile& b) {
  return LessFolded(a.source().path, b.source().path);
}

}  // namespace

DefinedNames::DefinedNames(const Catalogue& catalogue, const CatalogueFile* instead)
    : spaces_(GameStructure::get().spaces().size()) {
  for (const auto& file : catalogue.files()) {
    const bool comesNow = instead != nullptr && !Before(*file, *instead);
    const bool replaced = comesNow && !Before(*instead, *file);
    if (comesNow) add(*std::exchange(instead, nullptr));
    if (!replaced) add(*file);
  }
  if (instead != nullptr) add(*instead);
}

void DefinedNames::add(const CatalogueFile& file) {
  for (std::uint32_t i = 0; i < file.definitions().size(); ++i) {
    const CatalogueFile::Definition& definition = file.definitions()[i];
    const SpaceId space = file.space(definition.name);
    if (space != kNoSpace) spaces_[space][file.name(definition.name)].push_back({&file, i});
  }
}

const DefinedNames::Definitions& DefinedNames::definitions(SpaceId space, std::string_view name) const {
  static const Definitions kNone;
  const auto found = spaces_[space].find(name);
  return found == spaces_[space].end() ? kNone : found->second;
}

std::optional<std::string_view> DefinedNames::spelling(SpaceId space, std::string_view name) const {
  const Definitions& all = definitions(space, name);
  if (all.empty()) return std::nullopt;
  const bool exact = std::ranges::any_of(all, [name](const Definition& each) { return each.name() == name; });
  return exact ? name : all.front().name();
}

std::string_view DefinedNames::nearest(SpaceId space, std::string_view name) const {
  const std::string lower = ToLowerAscii(name);
  const std::string_view start = std::string_view(lower).substr(0, kSameLetters);
  std::string_view nearest;
  std::size_t edits = kMostEdits + 1;
  for (const auto& [candidate, places] : spaces_[space]) {
    if (!BeginsWithIgnoringCase(candidate, start)) continue;
    const std::size_t found = EditsBetween(lower, ToLowerAscii(candidate), std::min(edits, kMostEdits));
    const bool better = found < edits || (found == edits && LessFolded(candidate, nearest));
    if (found > kMostEdits || !better) continue;
    nearest = candidate;
    edits = found;
  }
  return nearest;
}

KindId DefinedNames::kindElsewhere(SpaceId space, std::string_view name) const {
  for (std::size_t other = 0; other < spaces_.size(); ++other) {
    const auto found = spaces_[other].find(name);
    if (other != space && found != spaces_[other].end()) return found->second.front().kind();
  }
  return kNoKind;
}

}  // namespace korvane
