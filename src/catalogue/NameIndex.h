// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"

namespace korvane {

// All names of a catalogue in one table, for who asks for very many of them: a question takes the same time
// however many files there are. It belongs to the catalogue and must not outlive it.
class NameIndex {
 public:
  explicit NameIndex(const Catalogue& catalogue);

  // Letter case is ignored; kNoSpace means names of any space.
  bool defines(SpaceId space, std::string_view name) const;
  bool uses(SpaceId space, std::string_view name) const;
  std::vector<FoundDefinition> definitions(SpaceId space, std::string_view name) const;

 private:
  struct Entry {
    std::uint64_t hash;
    std::uint32_t file;
    CatalogueFile::NameId name;
  };

  template <typename Take>
  void forEach(SpaceId space, std::string_view name, Take take) const;

  const Catalogue& catalogue_;
  std::vector<Entry> entries_;  // sorted by hash
};

}  // namespace korvane
