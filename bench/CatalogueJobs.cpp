// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "BarePass.h"
#include "GeneratedText.h"
#include "ProgramJobs.h"
#include "catalogue/NameSearch.h"
#include "files/NativePath.h"
#include "writing/Proposals.h"

namespace korvane {

namespace {

constexpr int kManyNames = 20'000;
constexpr std::array<std::string_view, 4> kStems = {"AmericaGun", "ChinaMine", "GLARocket", "TechLaser"};
constexpr std::string_view kManyFile = "Data\\INI\\Weapon.ini";
constexpr std::string_view kBeforeName = "Object Tank\r\n  WeaponSet\r\n    Weapon = PRIMARY a";
constexpr std::string_view kTyped = "amvehi0";  // finds names by their words' beginnings at last

CatalogueSources SourcesOf(const std::filesystem::path& game) {
  return {ProgramText(game)};
}

// The catalogue that the jobs ask, read when the first one runs.
using SharedCatalogue = std::shared_ptr<CataloguePtr>;

std::function<void()> Reading(const SharedCatalogue& catalogue, const CatalogueSources& sources) {
  return [=] {
    if (*catalogue == nullptr) *catalogue = ReadCatalogue(sources);
  };
}

Job WholeJob(const BenchFolders& folders) {
  const Paths files = folders.iniFiles();
  return {.name = "catalogue from nothing",
          .promise = {.ratio = 12, .growth = true},
          .run =
              [sources = SourcesOf(folders.game()), count = files.size()] {
                if (ReadCatalogue(sources)->files().size() != count)
                  throw std::runtime_error("files are missing");
              },
          .bare = BareRead(files)};
}

Job ChangedJob(const BenchFolders& folders, const SharedCatalogue& catalogue) {
  const std::string path = "Data\\INI\\Object\\" + std::string(kLargestFile);
  return {.name = "catalogue, a file of 2 MB changed",
          .promise = {.time = 20},
          .run = [=] { *catalogue = WithFileRead(**catalogue, path); },
          .bare = BareRead({folders.objects(kLargestFile)}),
          .prepare = Reading(catalogue, SourcesOf(folders.game()))};
}

void TypeAndSearch(const Catalogue& catalogue) {
  for (std::size_t letters = 1; letters <= kTyped.size(); ++letters)
    if (SearchNames(catalogue, {.pattern = kTyped.substr(0, letters), .kinds = {}, .most = 100}).hits.empty())
      throw std::runtime_error("nothing was found");
}

Job SearchJob(const BenchFolders& folders, const SharedCatalogue& catalogue) {
  return {.name = "search of all names, a key",
          .promise = {.time = 8},
          .run = [=] { TypeAndSearch(**catalogue); },
          .bare = {},
          .prepare = Reading(catalogue, SourcesOf(folders.game())),
          .steps = static_cast<int>(kTyped.size())};
}

struct UsedName {
  SpaceId space = kNoSpace;
  std::string name;
  std::size_t uses = 0;
};

UsedName MostUsed(const Catalogue& catalogue) {
  UsedName most;
  for (const auto& file : catalogue.files())
    for (CatalogueFile::NameId id = 0; id < file->nameCount(); ++id)
      if (file->usesOf(id).size() > most.uses)
        most = {file->space(id), std::string(file->name(id)), file->usesOf(id).size()};
  return most;
}

Job UsesJob(const BenchFolders& folders, const SharedCatalogue& catalogue) {
  const auto name = std::make_shared<UsedName>();
  const auto read = Reading(catalogue, SourcesOf(folders.game()));
  return {.name = "uses of the most used name",
          .promise = {.time = 8},
          .run =
              [=] {
                if ((*catalogue)->uses(name->space, name->name).size() < name->uses)
                  throw std::runtime_error("uses are missing");
              },
          .bare = {},
          .prepare =
              [=] {
                read();
                if (name->uses == 0) *name = MostUsed(**catalogue);
              }};
}

// A file that defines the most names that a modification has.
std::string ManyWeapons() {
  std::string text;
  for (int i = 0; i < kManyNames; ++i)
    text.append("Weapon ").append(Numbered(std::string(Pick(kStems, i)), i)).append("\r\nEnd\r\n");
  return text;
}

// What is shown when the first letter of a weapon is typed: the best names of all.
Job ProposalsJob(const BenchFolders& folders) {
  const auto names = std::make_shared<CataloguePtr>();
  return {.name = "completion list, 20,000 names",
          .promise = {.time = 16},
          .run =
              [names] {
                const Proposals found = Propose(kBeforeName, {names->get(), {}, {}});
                if (found.list.size() != kMostProposals) throw std::runtime_error("names are missing");
              },
          .bare = {},
          .prepare =
              [names, sources = SourcesOf(folders.game())] {
                if (*names == nullptr) *names = WithText(*ReadCatalogue(sources), kManyFile, ManyWeapons());
              }};
}

}  // namespace

Jobs CatalogueJobs(const RunningProgram& running) {
  const auto catalogue = std::make_shared<CataloguePtr>();
  return {WholeJob(running.folders), ChangedJob(running.folders, catalogue),
          SearchJob(running.folders, catalogue), UsesJob(running.folders, catalogue),
          ProposalsJob(running.folders)};
}

}  // namespace korvane
