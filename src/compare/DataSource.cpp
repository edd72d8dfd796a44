// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/DataSource.h"

#include <algorithm>
#include <exception>
#include <set>
#include <utility>

#include "catalogue/FoldedText.h"
#include "files/NativePath.h"
#include "files/Windows1252.h"
#include "ini/DataFiles.h"
#include "stock/DBCtl.h"
#include "stock/GameArchives.h"

namespace korvane {

namespace {

constexpr std::string_view kArchiveEnding = ".big";
constexpr std::string_view kDatabaseEnding = ".dbf";
constexpr std::string_view kIniEnding = ".ini";

bool EndsWithFolded(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualFolded(text.substr(text.size() - ending.size()), ending);
}

bool IsDatabase(std::string_view path) {
  return EndsWithFolded(path, kDatabaseEnding) && !FolderExists(ProgramPath(path));
}

bool IsIniPath(const std::string& path) {
  const std::string compared = ComparedPath(path);
  return compared.starts_with(ComparedPath(kIniFolder.substr(1))) && compared.ends_with(kIniEnding) &&
         compared.find("\\..\\") == std::string::npos;
}

class Reading {
 public:
  Reading(const TakeSourceText& take, const std::stop_token& stop, const TellProgress& tell)
      : take_(take), stop_(stop), tell_(tell) {}

  // A database among the paths stands in their order, and so do the folders and archives around it.
  void read(const DataSource& source) {
    CatalogueSources plain;
    for (const std::string& path : source.paths) {
      if (!IsDatabase(path)) {
        (plain.gameFolder.empty() ? plain.gameFolder : plain.also.emplace_back()) = path;
        continue;
      }
      readPlain(std::exchange(plain, {}));
      readDatabase(path);
    }
    readPlain(plain);
  }

  std::vector<SkippedFile> takeSkipped() { return std::move(skipped_); }

 private:
  bool isNew(const std::string& path) { return seen_.insert(ComparedPath(path)).second; }

  void readPlain(const CatalogueSources& sources) {
    if (sources.gameFolder.empty()) return;
    std::optional<SourceList> list = ListSourceFiles(sources, stop_);
    if (!list) return;
    std::ranges::move(list->skipped, std::back_inserter(skipped_));
    SourceReader reader;
    for (std::size_t i = 0; i < list->files.size() && !stop_.stop_requested(); ++i) {
      if (tell_) tell_(i, list->files.size());
      SourceFile& file = list->files[i];
      if (!isNew(file.path)) continue;
      if (std::string reason = reader.read(file); !reason.empty()) {
        skipped_.push_back({WholePath(file), std::move(reason)});
      } else {
        take_({std::move(file), std::string(reader.bytes())});
      }
    }
  }

  void readDatabase(const std::string& path) {
    try {
      DBCtl database;
      database.LoadDatabase("", path);
      const auto count = static_cast<std::size_t>(database.RecordCount());
      for (std::size_t i = 0; i < count && !stop_.stop_requested(); ++i, database.MoveNext()) {
        if (tell_) tell_(i, count);
        readRecord(database, path, i);
      }
    } catch (const std::exception&) {
      skipped_.push_back({path, "it cannot be read as a stock database"});
    }
  }

  void readRecord(DBCtl& database, const std::string& container, std::size_t index) {
    SourceFile file{
        .path = database.GetData(0), .container = container, .archived = true, .entry = index, .stamp = {}};
    std::ranges::replace(file.path, '/', '\\');
    if (!IsIniPath(file.path) || !isNew(file.path)) return;
    std::string text;
    std::string reason = textOfRecord(database, text);
    if (reason.empty()) reason = WhyNoText(text);
    if (!reason.empty()) {
      skipped_.push_back({WholePath(file), std::move(reason)});
    } else {
      take_({std::move(file), std::move(text)});
    }
  }

  // Why it cannot be read; a damaged text leaves the others.
  static std::string textOfRecord(DBCtl& database, std::string& text) {
    try {
      text = database.GetData(1);
      return {};
    } catch (const std::exception&) {
      return "it cannot be read";
    }
  }

  const TakeSourceText& take_;
  const std::stop_token& stop_;
  const TellProgress& tell_;
  std::set<std::string> seen_;
  std::vector<SkippedFile> skipped_;
};

std::optional<std::string> ReadRecordOf(const SourceFile& file) {
  try {
    DBCtl database;
    database.LoadDatabase("", file.container);
    database.SetRecord(static_cast<std::int64_t>(file.entry));
    if (ComparedPath(database.GetData(0)) != ComparedPath(file.path)) return std::nullopt;
    return database.GetData(1);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

DataSource ArchivesOf(std::string_view gameFolder) {
  try {
    return {ArchivesIn(gameFolder)};
  } catch (const std::exception&) {  // no such folder
    return {};
  }
}

std::string WhyNoDataSource(std::string_view path) {
  if (FolderExists(ProgramPath(path))) {
    const bool hasData =
        FolderExists(ProgramPath(std::string(path) + "\\Data\\INI")) || !ArchivesOf(path).paths.empty();
    return hasData ? "" : "it has no Data\\INI and no archive";
  }
  if (!FileExists(ProgramPath(path))) return "there is no such folder or file";
  const bool known = EndsWithFolded(path, kArchiveEnding) || EndsWithFolded(path, kDatabaseEnding);
  return known ? "" : "it is no folder, no archive (.big) and no stock database (.DBF)";
}

std::optional<std::vector<SkippedFile>> ReadDataSource(const DataSource& source, const TakeSourceText& take,
                                                       const std::stop_token& stop,
                                                       const TellProgress& tell) {
  Reading reading(take, stop, tell);
  reading.read(source);
  if (stop.stop_requested()) return std::nullopt;
  return reading.takeSkipped();
}

std::optional<std::string> ReadSourceText(const SourceFile& file) {
  if (IsDatabase(file.container)) return ReadRecordOf(file);
  SourceReader reader;
  if (!reader.read(file).empty()) return std::nullopt;
  return std::string(reader.bytes());
}

}  // namespace korvane
