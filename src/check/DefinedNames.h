// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/FoldedText.h"

namespace korvane {

// For containers of texts whose letter case does not matter.
struct HashFolded {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return static_cast<std::size_t>(FoldedHash(text)); }
};
struct SameFolded {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualFolded(a, b); }
};

// All names that the files of a catalogue define, to be looked up quickly and without regard to letter case.
// It never changes, so that threads may share it; the files must outlive it.
class DefinedNames {
 public:
  struct Definition {
    const CatalogueFile* file = nullptr;
    std::uint32_t index = 0;  // in file->definitions()

    std::string_view name() const { return file->name(file->definitions()[index].name); }
    KindId kind() const { return file->definitions()[index].kind; }
    const CatalogueFile::Block& block() const { return file->blocks()[file->definitions()[index].block]; }
  };
  using Definitions = std::vector<Definition>;  // in the order of the files and of their texts

  // `instead` takes the place of the catalogue's file of the same path, or is one more file.
  explicit DefinedNames(const Catalogue& catalogue, const CatalogueFile* instead = nullptr);

  bool hasAny(SpaceId space) const { return !spaces_[space].empty(); }
  std::size_t count(SpaceId space) const { return spaces_[space].size(); }
  // Empty when there are none.
  const Definitions& definitions(SpaceId space, std::string_view name) const;
  // The spelling of a definition, exactly the one asked for where there is such a definition; or nothing.
  std::optional<std::string_view> spelling(SpaceId space, std::string_view name) const;
  // The name that was most likely meant: at most two edits away, with the same three first letters. Empty
  // when there is none.
  std::string_view nearest(SpaceId space, std::string_view name) const;
  // The kind of an item of this name in another space, or kNoKind.
  KindId kindElsewhere(SpaceId space, std::string_view name) const;

 private:
  using Names = std::unordered_map<std::string_view, Definitions, HashFolded, SameFolded>;

  void add(const CatalogueFile& file);

  std::vector<Names> spaces_;
};

}  // namespace korvane
