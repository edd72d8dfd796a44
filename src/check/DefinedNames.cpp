// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/DefinedNames.h"

#include <algorithm>
#include <bit>

#include "check/EditDistance.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::size_t kSameLetters = 3;
constexpr std::size_t kMostEdits = 2;

bool Before(const CatalogueFile& a, const CatalogueFile& b) {
  return LessFolded(a.source().path, b.source().path);
}

std::uint32_t HashOf(std::string_view name) {
  return static_cast<std::uint32_t>(FoldedHash(name));
}

// Finds the name that is the fewest edits away.
class NearestName {
 public:
  explicit NearestName(std::string_view name)
      : lower_(ToLowerAscii(name)), start_(std::string_view(lower_).substr(0, kSameLetters)) {}

  void lookAt(std::string_view candidate) {
    const std::size_t limit = std::min(edits_, kMostEdits);
    if (candidate.size() + limit < lower_.size() || candidate.size() > lower_.size() + limit) return;
    if (!BeginsWithIgnoringCase(candidate, start_)) return;
    const std::size_t edits = EditsBetween(lower_, ToLowerAscii(candidate), limit);
    const bool better = edits < edits_ || (edits == edits_ && LessFolded(candidate, nearest_));
    if (edits > kMostEdits || !better) return;
    nearest_ = candidate;
    edits_ = edits;
  }
  std::string_view nearest() const { return nearest_; }

 private:
  std::string lower_;
  std::string_view start_;
  std::string_view nearest_;
  std::size_t edits_ = kMostEdits + 1;
};

}  // namespace

void DefinedNames::Names::add(const CatalogueFile& file, std::uint32_t index) {
  definitions_.push_back({&file, index, file.name(file.definitions()[index].name)});
}

// From the last one on, so that the first of each name stands in the table.
void DefinedNames::Names::makeTable() {
  slots_.resize(std::bit_ceil(definitions_.size() * 2));
  behind_.resize(definitions_.size());
  for (auto i = static_cast<std::uint32_t>(definitions_.size()); i-- > 0;) {
    const Definition& each = definitions_[i];
    const std::uint32_t hash = each.file->hash(each.file->definitions()[each.index].name);
    Slot& slot = slots_[placeOf(each.name, hash)];
    behind_[i] = slot.first;
    slot = {hash, i};
  }
}

// Where the name stands in the table, or where it would.
std::size_t DefinedNames::Names::placeOf(std::string_view name, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  const auto isAnother = [&](const Slot& slot) {
    return slot.first != CatalogueFile::kNone &&
           (slot.hash != hash || !EqualFolded(definitions_[slot.first].name, name));
  };
  while (isAnother(slots_[place])) place = (place + 1) & mask;
  return place;
}

const DefinedNames::Definition* DefinedNames::Names::at(std::uint32_t index) const {
  return index == CatalogueFile::kNone ? nullptr : &definitions_[index];
}

const DefinedNames::Definition* DefinedNames::Names::find(std::string_view name, std::uint32_t hash) const {
  return definitions_.empty() ? nullptr : at(slots_[placeOf(name, hash)].first);
}

const DefinedNames::Definition* DefinedNames::Names::behind(const Definition& definition) const {
  return at(behind_[static_cast<std::size_t>(&definition - definitions_.data())]);
}

DefinedNames::DefinedNames(const Catalogue& catalogue) : spaces_(GameStructure::get().spaces().size()) {
  for (const auto& file : catalogue.files()) add(*file);
  for (Names& names : spaces_) names.makeTable();
}

DefinedNames::DefinedNames(const DefinedNames& names, const Catalogue& catalogue,
                           const CatalogueFile& instead)
    : spaces_(names.spaces_.size()),
      others_(&names),
      instead_(&instead),
      replaced_(catalogue.file(instead.source().path)),
      replacedNames_(spaces_.size()) {
  add(instead);
  for (Names& each : spaces_) each.makeTable();
  if (replaced_ == nullptr) return;
  for (const CatalogueFile::Definition& definition : replaced_->definitions()) {
    const SpaceId space = replaced_->space(definition.name);
    if (space != kNoSpace) ++replacedNames_[space];
  }
}

void DefinedNames::add(const CatalogueFile& file) {
  for (std::uint32_t i = 0; i < file.definitions().size(); ++i) {
    const SpaceId space = file.space(file.definitions()[i].name);
    if (space != kNoSpace) spaces_[space].add(file, i);
  }
}

template <typename GoesOn>
void DefinedNames::forEach(SpaceId space, std::string_view name, std::uint32_t hash, GoesOn goesOn) const {
  const Names& own = spaces_[space];
  const Definition* mine = own.find(name, hash);
  if (others_ != nullptr) {
    const Names& names = others_->spaces_[space];
    for (const Definition* each = names.find(name, hash); each != nullptr; each = names.behind(*each)) {
      if (each->file == replaced_) continue;
      for (; mine != nullptr && Before(*instead_, *each->file); mine = own.behind(*mine))
        if (!goesOn(*mine)) return;
      if (!goesOn(*each)) return;
    }
  }
  while (mine != nullptr && goesOn(*mine)) mine = own.behind(*mine);
}

std::size_t DefinedNames::count(SpaceId space) const {
  const std::size_t others = others_ == nullptr ? 0 : others_->count(space) - replacedNames_[space];
  return others + spaces_[space].all().size();
}

std::optional<DefinedNames::Definition> DefinedNames::firstOwn(SpaceId space, std::string_view name) const {
  std::optional<Definition> found;
  forEach(space, name, HashOf(name), [&found](const Definition& each) {
    if (each.file->source().own) found = each;
    return !found;
  });
  return found;
}

std::optional<std::string_view> DefinedNames::spelling(SpaceId space, std::string_view name,
                                                       std::uint32_t hash) const {
  std::optional<std::string_view> spelt;
  forEach(space, name, hash, [&](const Definition& each) {
    const bool exact = each.name == name;
    if (exact || !spelt) spelt = each.name;
    return !exact;
  });
  return spelt;
}

std::string_view DefinedNames::nearest(SpaceId space, std::string_view name) const {
  NearestName nearest(name);
  if (others_ != nullptr) {
    for (const Definition& each : others_->spaces_[space].all())
      if (each.file != replaced_) nearest.lookAt(each.name);
  }
  for (const Definition& each : spaces_[space].all()) nearest.lookAt(each.name);
  return nearest.nearest();
}

KindId DefinedNames::kindElsewhere(SpaceId space, std::string_view name) const {
  KindId kind = kNoKind;
  for (std::size_t other = 0; other < spaces_.size() && kind == kNoKind; ++other) {
    if (other == space) continue;
    forEach(static_cast<SpaceId>(other), name, HashOf(name), [&kind](const Definition& each) {
      kind = each.kind();
      return false;
    });
  }
  return kind;
}

}  // namespace korvane
