// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/SourceFiles.h"

namespace korvane {

// What is compared: game folders, archives (".big") and stock databases (".DBF"), by the program's paths. Of
// files with the same path the first counts, as in CatalogueSources.
struct DataSource {
  std::vector<std::string> paths;

  bool operator==(const DataSource&) const = default;
};

// The archives that lie in the game folder itself: the original's data, whatever loose files are there.
// Nothing in it when there are none.
DataSource ArchivesOf(std::string_view gameFolder);

// Why it has nothing that could be compared, as a clause; empty when it can be tried.
std::string WhyNoDataSource(std::string_view path);

// A file of a stock database has the database as its container.
struct SourceText {
  SourceFile file;
  std::string text;
};
using TakeSourceText = std::function<void(SourceText)>;
using TellProgress = std::function<void(std::size_t done, std::size_t all)>;

// Hands out the INI files one after the other. Gives those that cannot be read; nothing when it was asked to
// stop.
std::optional<std::vector<SkippedFile>> ReadDataSource(const DataSource& source, const TakeSourceText& take,
                                                       const std::stop_token& stop = {},
                                                       const TellProgress& tell = {});

// The file's text as it is now; nothing when it cannot be read any more.
std::optional<std::string> ReadSourceText(const SourceFile& file);

}  // namespace korvane
