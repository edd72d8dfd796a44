// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "catalogue/Catalogue.h"
#include "compare/AlignedRows.h"
#include "compare/ComparedTexts.h"
#include "compare/Comparison.h"
#include "compare/LineDifference.h"
#include "files/NativePath.h"

namespace korvane {

namespace {

constexpr std::size_t kChangedLines = 5'000;

// The text with a comment behind some lines, all over it, and another value in as many.
std::string Changed(std::string_view text, std::size_t every) {
  std::string changed;
  std::size_t number = 0;
  for (const std::string_view line : LinesOf(text)) {
    changed += line;
    if (++number % every == 0) changed += " 1";
    changed += "\r\n";
  }
  return changed;
}

std::size_t LinesBetweenChanges(std::string_view text) {
  return std::max<std::size_t>(LinesOf(text).size() / kChangedLines, 1);
}

// Another copy of the modification in which every file is changed.
std::filesystem::path ChangedModification(const BenchFolders& folders) {
  const std::filesystem::path changed = folders.home / "changed";
  for (const std::filesystem::path& file : folders.iniFiles()) {
    const std::filesystem::path target = changed / file.lexically_relative(folders.game());
    std::filesystem::create_directories(target.parent_path());
    std::ofstream(target, std::ios::binary) << Changed(ReadWhole(file), 200);
  }
  return changed;
}

// Beside twice the catalogue of one.
Job SourcesJob(const BenchFolders& folders) {
  const std::string game = ProgramText(folders.game());
  const std::string mod = ProgramText(ChangedModification(folders));
  return {.name = "comparison of two modifications",
          .promise = {.ratio = 1.5, .time = 1000, .growth = true},
          .run =
              [=] {
                if (CompareSources({{game}}, {{mod}})->items.empty())
                  throw std::runtime_error("nothing differs");
              },
          .bare =
              [=] {
                ReadCatalogue({game});
                ReadCatalogue({mod});
              }};
}

// The largest file, of 50,000 lines.
Job LinesJob(const BenchFolders& folders) {
  const auto former = std::make_shared<const std::string>(ReadWhole(folders.objects(kLargestFile)));
  const auto present = std::make_shared<const std::string>(Changed(*former, LinesBetweenChanges(*former)));
  return {.name = "difference of lines, 5,000 changes",
          .promise = {.time = 200},
          .run =
              [=] {
                if (CompareLines(LinesOf(*former), LinesOf(*present)).size() < kChangedLines)
                  throw std::runtime_error("changes are missing");
              },
          .bare = {}};
}

// What the history of the same file does before it shows anything.
Job HistoryJob(const BenchFolders& folders) {
  const auto former = std::make_shared<const std::string>(ReadWhole(folders.objects(kLargestFile)));
  const auto present = std::make_shared<const std::string>(Changed(*former, LinesBetweenChanges(*former)));
  return {.name = "history, 5,000 changes side by side",
          .promise = {.time = 200},
          .run =
              [=] {
                const ComparedTexts texts(*former, *present);
                if (AlignRows(texts).changes.size() < kChangedLines / 2)
                  throw std::runtime_error("changes are missing");
              },
          .bare = {}};
}

}  // namespace

Jobs CompareJobs(const RunningProgram& running) {
  return {SourcesJob(running.folders), LinesJob(running.folders), HistoryJob(running.folders)};
}

}  // namespace korvane
