// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <iostream>
#include <map>
#include <stdexcept>

#include "Commands.h"
#include "Container.h"
#include "PackSources.h"
#include "Progress.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"
#include "stock/RestorePath.h"
#include "stock/StockTable.h"

namespace korvane {

namespace {

std::vector<std::string> CatalogueFiles() {
  std::vector<std::string> paths;
  paths.reserve(kDataFiles.size());
  for (const DataFile& file : kDataFiles) {
    paths.push_back(std::string(file.folder.substr(1)) + std::string(file.name));
  }
  return paths;
}

std::vector<std::string> AllFiles(const PackSources& sources) {
  std::map<std::string, std::string> byLowerPath;
  for (const auto& source : sources) {
    for (const std::string& path : source->filesBelow(kIniFolder.substr(1))) {
      byLowerPath.emplace(ToLowerAscii(path), path);
    }
  }
  std::vector<std::string> paths;
  paths.reserve(byLowerPath.size());
  for (const auto& [lowerPath, path] : byLowerPath) paths.push_back(path);
  return paths;
}

std::vector<std::string> NamedFiles(std::vector<std::string> paths) {
  for (std::string& path : paths) std::replace(path.begin(), path.end(), '/', '\\');
  return paths;
}

std::vector<std::string> WantedFiles(const PackOptions& options, const PackSources& sources) {
  if (options.all) return AllFiles(sources);
  return options.files.empty() ? CatalogueFiles() : NamedFiles(options.files);
}

// A path of an archive may be anything.
void RequireSafe(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    if (!IsSafeRelativePath(path)) throw std::runtime_error(path + ": no path of a file below a game folder");
  }
}

PackSource* SourceOf(const std::string& path, const PackSources& sources) {
  const auto found =
      std::find_if(sources.begin(), sources.end(), [&](const auto& source) { return source->has(path); });
  return found == sources.end() ? nullptr : found->get();
}

// Takes out of the paths those that no source has.
std::vector<std::string> TakeMissing(std::vector<std::string>& paths, const PackSources& sources) {
  const auto firstMissing = std::stable_partition(paths.begin(), paths.end(), [&](const std::string& path) {
    return SourceOf(path, sources) != nullptr;
  });
  std::vector<std::string> missing(firstMissing, paths.end());
  paths.erase(firstMissing, paths.end());
  return missing;
}

std::uint64_t PackFiles(const std::vector<std::string>& paths, const PackSources& sources,
                        StockTable& table) {
  std::uint64_t bytes = 0;
  Progress progress("Packing", static_cast<std::int64_t>(paths.size()));
  for (const std::string& path : paths) {
    PackSource& source = *SourceOf(path, sources);
    const std::uint64_t size = source.size(path);
    table.add(path, size, [&](const TakePiece& take) { source.read(path, take); });
    bytes += size;
    progress.stepDone();
  }
  return bytes;
}

}  // namespace

bool Pack(const PackOptions& options) {
  const PackSources sources = OpenPackSources(options.sources);
  std::vector<std::string> paths = WantedFiles(options, sources);
  RequireSafe(paths);
  const std::vector<std::string> missing = TakeMissing(paths, sources);
  for (const std::string& path : missing) std::cerr << path << ": not in any source\n";
  if (paths.empty()) throw std::runtime_error("there is nothing to pack");
  if (!missing.empty() && !options.partial) {
    throw std::runtime_error("nothing was packed, since files are missing (--partial leaves them out)");
  }
  const std::filesystem::path folder = NativePath(ProgramPath(options.output));
  std::filesystem::create_directories(folder);
  StockTable table(folder / NativePath(ProgramPath(options.name)));
  const std::uint64_t bytes = PackFiles(paths, sources, table);
  table.commit();
  std::cout << Counted(paths.size(), "file") << ", " << Counted(bytes, "byte") << " packed into "
            << options.name << ".DBF and " << options.name << ".DBT\n";
  return true;
}

}  // namespace korvane
