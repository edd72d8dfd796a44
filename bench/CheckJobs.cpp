// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>
#include <stdexcept>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "check/Checker.h"
#include "files/NativePath.h"

namespace korvane {

namespace {

CatalogueSources SourcesOf(const BenchFolders& folders) {
  return {.gameFolder = ProgramText(folders.game())};
}

// The catalogue alone stands beside the catalogue with the check of all files.
Job FolderJob(const BenchFolders& folders) {
  return {.name = "check, all files after the catalogue",
          .promise = {.ratio = 2, .time = 1000, .growth = true},
          .run =
              [folders] {
                if (!Checker(ReadCatalogue(SourcesOf(folders))).check({.jobs = 2}))
                  throw std::runtime_error("the check was stopped");
              },
          .bare = [folders] { ReadCatalogue(SourcesOf(folders)); }};
}

// While somebody types, the text is checked whole.
Job TextJob(const BenchFolders& folders) {
  const auto checker = std::make_shared<const Checker>(ReadCatalogue(SourcesOf(folders)));
  const auto text = std::make_shared<const std::string>(ReadWhole(folders.objects(kLargestFile)));
  return {.name = "check, largest file as it is edited",
          .promise = {.time = 50},
          .run =
              [=] {
                if (!checker->checkText("Data/INI/Object/FactionUnit.ini", *text))
                  throw std::runtime_error("the check was stopped");
              },
          .bare = BareRead({folders.objects(kLargestFile)})};
}

}  // namespace

Jobs CheckJobs(const RunningProgram& running) {
  return {FolderJob(running.folders), TextJob(running.folders)};
}

}  // namespace korvane
