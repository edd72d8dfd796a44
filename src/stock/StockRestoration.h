// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "stock/GameArchives.h"

namespace korvane {

class DBCtl;

// What became of a file that was missing. Names are UTF-8.
struct RestoredFile {
  enum class Source { archive, database };

  std::string path;  // below the game folder
  Source source = Source::database;
  std::vector<std::string> archives{};  // those that have it; it comes from the first
  std::string reason{};                 // why it was not written, in the system's encoding; empty when it was
};

// Told after each record how many of all are done. False ends the restoring; the database is then left alone,
// so that another restoring may already be using it.
using RestoreStep = std::function<bool(std::int64_t done, std::int64_t all)>;

// Writes the files of the stock database that are missing below a game folder. Their texts come from the
// game folder's own archives, and from the database only where the folder holds no archive at all: a text
// that is not the game's own would overrule the one in the archives. A path that leads out of the game folder
// is never written.
class StockRestoration {
 public:
  StockRestoration(DBCtl& database, std::string gameFolder);

  // Goes through the records of the database "Data" in the program folder, and gives those whose files were
  // missing. An existing file is left alone, whatever is in it. DatabaseError when the database cannot be
  // read.
  std::vector<RestoredFile> restoreAll(std::string_view programFolder, const RestoreStep& step);

  // Why archives of the game folder cannot be read, a sentence each, as far as they have been looked at.
  std::vector<std::string> archiveFailures() const;

 private:
  std::optional<RestoredFile> restoreCurrent();
  GameArchives& archives();
  RestoredFile restore(const std::string& recordPath);
  std::string write(const RestoredFile& file, const std::string& recordPath, const std::string& target);

  DBCtl& database_;
  std::string gameFolder_;
  std::optional<GameArchives> archives_;  // looked at when the first file is missing
};

}  // namespace korvane
