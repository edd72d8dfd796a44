// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
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
    std::string_view name{};  // as it is spelt there

    KindId kind() const { return file->definitions()[index].kind; }
    const CatalogueFile::Block& block() const { return file->blocks()[file->definitions()[index].block]; }
  };

  explicit DefinedNames(const Catalogue& catalogue);
  // The same names, but that `instead` takes the place of the file of the same path, or is one more file.
  // `names`, which is made of the catalogue, must outlive this.
  DefinedNames(const DefinedNames& names, const Catalogue& catalogue, const CatalogueFile& instead);

  bool hasAny(SpaceId space) const { return count(space) > 0; }
  // Of the definitions.
  std::size_t count(SpaceId space) const;
  // The first definition in the game folder and its archives, in the order of the files and of their texts.
  std::optional<Definition> firstOwn(SpaceId space, std::string_view name) const;
  // The spelling of a definition, exactly the one asked for where there is such a definition; or nothing.
  // `hash` has the low bits of the name's FoldedHash.
  std::optional<std::string_view> spelling(SpaceId space, std::string_view name, std::uint32_t hash) const;
  // The name that was most likely meant: at most two edits away, with the same three first letters. Empty
  // when there is none.
  std::string_view nearest(SpaceId space, std::string_view name) const;
  // The kind of an item of this name in another space, or kNoKind.
  KindId kindElsewhere(SpaceId space, std::string_view name) const;

 private:
  // The names of one space.
  class Names {
   public:
    void add(const CatalogueFile& file, std::uint32_t index);
    // When all have been added.
    void makeTable();

    const std::vector<Definition>& all() const { return definitions_; }
    // The first definition of the name, or nullptr; then the next one of the same name.
    const Definition* find(std::string_view name, std::uint32_t hash) const;
    const Definition* behind(const Definition& definition) const;

   private:
    struct Slot {
      std::uint32_t hash = 0;
      std::uint32_t first = CatalogueFile::kNone;  // in definitions_
    };

    std::size_t placeOf(std::string_view name, std::uint32_t hash) const;
    const Definition* at(std::uint32_t index) const;

    std::vector<Definition> definitions_;
    std::vector<std::uint32_t> behind_;  // for each of them the next one of its name
    std::vector<Slot> slots_;            // a hash table of the names, its size a power of two
  };

  void add(const CatalogueFile& file);
  // Shows the definitions of a name in their order, until `goesOn` says no.
  template <typename GoesOn>
  void forEach(SpaceId space, std::string_view name, std::uint32_t hash, GoesOn goesOn) const;

  std::vector<Names> spaces_;
  const DefinedNames* others_ = nullptr;     // names that count too
  const CatalogueFile* instead_ = nullptr;   // which stands among them, and of which spaces_ are
  const CatalogueFile* replaced_ = nullptr;  // whose names among the others do not count
  std::vector<std::size_t> replacedNames_;   // how many it has in each space
};

}  // namespace korvane
