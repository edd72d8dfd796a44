// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Catalogue.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <set>
#include <utility>

#include "catalogue/FoldedText.h"
#include "files/NativePath.h"

namespace korvane {

namespace {

using Files = Catalogue::Files;

Files::const_iterator PlaceOf(const Files& files, std::string_view comparedPath) {
  return std::lower_bound(
      files.begin(), files.end(), comparedPath,
      [](const auto& file, std::string_view path) { return LessFolded(file->source().path, path); });
}

Files::const_iterator Find(const Files& files, std::string_view comparedPath) {
  const auto place = PlaceOf(files, comparedPath);
  return place != files.end() && EqualFolded((*place)->source().path, comparedPath) ? place : files.end();
}

// As the file is spelt where it is known; else as it is asked for.
std::string KnownPath(const Catalogue& catalogue, const std::string& path) {
  const CatalogueFile* known = catalogue.file(path);
  return known == nullptr ? path : known->source().path;
}

std::string WithBackslashes(std::string_view path) {
  std::string text(path);
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

// One that still is as it was when it was read.
std::shared_ptr<const CatalogueFile> Unchanged(const Catalogue* previous, const SourceFile& source) {
  if (previous == nullptr || source.stamp.time == std::filesystem::file_time_type{}) return nullptr;
  const auto known = Find(previous->files(), ComparedPath(source.path));
  return known != previous->files().end() && (*known)->source() == source ? *known : nullptr;
}

}  // namespace

const CatalogueFile* Catalogue::file(std::string_view path) const {
  const auto found = Find(files_, ComparedPath(path));
  return found == files_.end() ? nullptr : found->get();
}

template <typename Take>
void Catalogue::forEachSpelling(SpaceId space, std::string_view name, Take take) const {
  const std::uint64_t hash = FoldedHash(name);
  for (const auto& file : files_)
    for (const CatalogueFile::NameId id : file->spellings(space, name, hash)) take(*file, id);
}

std::vector<FoundDefinition> Catalogue::definitions(SpaceId space, std::string_view name) const {
  std::vector<FoundDefinition> found;
  forEachSpelling(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    for (const std::uint32_t index : file.definitionsOf(id))
      found.push_back(FoundIn(file, file.definitions()[index]));
  });
  return found;
}

std::vector<FoundUse> Catalogue::uses(SpaceId space, std::string_view name) const {
  std::vector<FoundUse> found;
  forEachSpelling(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    for (const std::uint32_t index : file.usesOf(id)) found.push_back(FoundIn(file, file.uses()[index]));
  });
  return found;
}

std::size_t Catalogue::countUses(SpaceId space, std::string_view name) const {
  std::size_t count = 0;
  forEachSpelling(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    count += file.usesOf(id).size();
  });
  return count;
}

bool Catalogue::defines(SpaceId space, std::string_view name) const {
  bool found = false;
  forEachSpelling(space, name, [&](const CatalogueFile& file, CatalogueFile::NameId id) {
    found = found || !file.definitionsOf(id).empty();
  });
  return found;
}

FoundDefinition FoundIn(const CatalogueFile& file, const CatalogueFile::Definition& definition) {
  return {&file,
          definition.kind,
          file.name(definition.name),
          definition.block,
          file.blocks()[definition.block].firstLine,
          definition.column};
}

FoundUse FoundIn(const CatalogueFile& file, const CatalogueFile::Use& use) {
  return {&file, file.space(use.name), file.name(use.name), use.block, use.line, use.column, use.key};
}

std::size_t CountUsers(const Catalogue& catalogue, std::string_view kindOfItem, std::string_view name,
                       std::string_view kindOfUsers) {
  const GameStructure& structure = GameStructure::get();
  const KindId users = structure.kind(kindOfUsers);
  std::set<std::pair<const CatalogueFile*, std::uint32_t>> found;
  for (const FoundUse& use : catalogue.uses(structure.space(kindOfItem), name)) {
    if (use.block == CatalogueFile::kNone) continue;
    const std::uint32_t block = use.file->outermost(use.block);
    if (structure.type(use.file->blocks()[block].type).kind == users) found.emplace(use.file, block);
  }
  return found.size();
}

CataloguePtr ReadCatalogue(const CatalogueSources& sources, const Catalogue* previous,
                           const std::stop_token& stop,
                           const std::function<void(std::size_t, std::size_t)>& progress) {
  std::optional<SourceList> list = ListSourceFiles(sources, stop);
  if (!list) return nullptr;
  SourceReader reader;
  Files files;
  for (std::size_t i = 0; i < list->files.size(); ++i) {
    SourceFile& source = list->files[i];
    if (stop.stop_requested()) return nullptr;
    if (progress) progress(i, list->files.size());
    if (auto known = Unchanged(previous, source)) {
      files.push_back(std::move(known));
    } else if (std::string reason = reader.read(source); !reason.empty()) {
      list->skipped.push_back({WholePath(source), std::move(reason)});
    } else if (auto file = CatalogueFile::read(std::move(source), reader.bytes(), stop)) {
      files.push_back(std::move(file));
    }
  }
  if (stop.stop_requested()) return nullptr;
  return std::make_shared<const Catalogue>(sources, std::move(files), std::move(list->skipped));
}

CataloguePtr WithFile(const Catalogue& catalogue, std::shared_ptr<const CatalogueFile> file) {
  Files files = catalogue.files();
  const std::string path = ComparedPath(file->source().path);
  const auto place = PlaceOf(files, path);
  if (place != files.end() && EqualFolded((*place)->source().path, path)) {
    files[static_cast<std::size_t>(place - files.begin())] = std::move(file);
  } else {
    files.insert(place, std::move(file));
  }
  return std::make_shared<const Catalogue>(catalogue.sources(), std::move(files), catalogue.skipped());
}

CataloguePtr WithFileRead(const Catalogue& catalogue, std::string_view path) {
  const std::optional<SourceFile> source =
      LooseSource(catalogue.sources().gameFolder, KnownPath(catalogue, WithBackslashes(path)));
  SourceReader reader;
  if (!source || !reader.read(*source).empty()) return ReadCatalogue(catalogue.sources(), &catalogue);
  return WithFile(catalogue, CatalogueFile::read(*source, reader.bytes()));
}

CataloguePtr WithText(const Catalogue& catalogue, std::string_view path, std::string_view text) {
  SourceFile source{.path = KnownPath(catalogue, WithBackslashes(path)),
                    .container = catalogue.sources().gameFolder};
  return WithFile(catalogue, CatalogueFile::read(std::move(source), text));
}

}  // namespace korvane
