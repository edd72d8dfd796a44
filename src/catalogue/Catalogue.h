// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueFile.h"

namespace korvane {

// A definition or a use that a question found. It belongs to the catalogue that was asked.
struct FoundDefinition {
  const CatalogueFile* file = nullptr;
  KindId kind = kNoKind;
  std::string_view name;    // as it is spelt there
  std::uint32_t block = 0;  // in file->blocks()
  std::uint32_t line = 0;
  std::uint32_t column = 0;  // of the name
};
struct FoundUse {
  const CatalogueFile* file = nullptr;
  SpaceId space = kNoSpace;
  std::string_view name;    // as it is spelt there
  std::uint32_t block = 0;  // in file->blocks()
  std::uint32_t line = 0;
  std::uint32_t column = 0;  // of the name
  KeyId key = kNoKey;
};

// What all INI files define and name. It never changes: threads may share it, and a change makes another one
// that has most files in common with it.
class Catalogue {
 public:
  using Files = std::vector<std::shared_ptr<const CatalogueFile>>;

  Catalogue(CatalogueSources sources, Files files, std::vector<SkippedFile> skipped)
      : sources_(std::move(sources)), files_(std::move(files)), skipped_(std::move(skipped)) {}

  const CatalogueSources& sources() const { return sources_; }
  // Sorted by path, letter case ignored. Answers come in this order, and in the order of the text.
  const Files& files() const { return files_; }
  const std::vector<SkippedFile>& skipped() const { return skipped_; }

  // The file of this path below the game folder, "Data\INI\Weapon.ini" with slashes of either kind; nullptr.
  const CatalogueFile* file(std::string_view path) const;

  // Letter case is ignored; kNoSpace means names of any space.
  std::vector<FoundDefinition> definitions(SpaceId space, std::string_view name) const;
  std::vector<FoundUse> uses(SpaceId space, std::string_view name) const;
  std::size_t countUses(SpaceId space, std::string_view name) const;
  bool defines(SpaceId space, std::string_view name) const;

 private:
  template <typename Take>
  void forEachSpelling(SpaceId space, std::string_view name, Take take) const;

  CatalogueSources sources_;
  Files files_;
  std::vector<SkippedFile> skipped_;
};

// How many blocks of the one kind name the item of the other, letter case of the name ignored.
std::size_t CountUsers(const Catalogue& catalogue, std::string_view kindOfItem, std::string_view name,
                       std::string_view kindOfUsers);

using CataloguePtr = std::shared_ptr<const Catalogue>;

FoundDefinition FoundIn(const CatalogueFile& file, const CatalogueFile::Definition& definition);
FoundUse FoundIn(const CatalogueFile& file, const CatalogueFile::Use& use);

// Reads all files of the sources. Those that have not changed since `previous` by their size and time are
// taken from there. `progress` is told how many files are done, of how many. nullptr when it was asked to
// stop.
CataloguePtr ReadCatalogue(const CatalogueSources& sources, const Catalogue* previous = nullptr,
                           const std::stop_token& stop = {},
                           const std::function<void(std::size_t, std::size_t)>& progress = {});

// After one loose file of the game folder was written or removed: reads this file only, and the others only
// when it is gone and an archive may have it. The path is one below the game folder.
CataloguePtr WithFileRead(const Catalogue& catalogue, std::string_view path);

// With the file in the place of the one of the same path, or beside the others.
CataloguePtr WithFile(const Catalogue& catalogue, std::shared_ptr<const CatalogueFile> file);

// With this text in the place of the file's own: a text that is edited and not saved. It stays until the file
// is read again.
CataloguePtr WithText(const Catalogue& catalogue, std::string_view path, std::string_view text);

}  // namespace korvane
