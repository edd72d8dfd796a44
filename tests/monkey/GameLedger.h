// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "monkey/TestGames.h"

namespace korvane {

// Knows what every file of a game folder must hold, and tells when one holds anything else.
class GameLedger {
 public:
  // Writes the files into the folder (native path).
  GameLedger(std::filesystem::path folder, GameFiles files);

  const std::filesystem::path& folder() const { return folder_; }
  const GameFiles& original() const { return original_; }

  // Changes from outside the program: of a data file that chance chooses, of an archive or of a folder.
  void changeOutside(Chance& chance);
  // Everything as it was at the beginning.
  void restore();

  // What the file holds when the stock is restored.
  bool isOriginal(const std::string& path, const std::string& bytes) const;

  // A change that the program has made.
  struct Change {
    std::string path;                   // below the folder, with slashes
    std::optional<std::string> before;  // nothing: there was no file
    std::optional<std::string> after;
  };
  // Looks at the folder and takes over what it finds.
  std::vector<Change> look();

 private:
  using Bytes = std::shared_ptr<const std::string>;  // null for what is no ordinary file
  struct Entry {
    std::filesystem::file_time_type time{};
    std::uintmax_t size = 0;
    Bytes bytes{};
  };
  using Entries = std::map<std::string, Entry>;

  static Bytes BytesOf(const Entries& entries, const std::string& path);
  Entries list() const;
  void put(const std::string& path, const std::string& bytes);
  void changeFile(const std::string& path, Chance& chance);
  void changeMany(const std::string& path, Chance& chance);
  void reach(const std::filesystem::path& target) const;
  void makeWritable(const std::filesystem::path& target) const;

  std::filesystem::path folder_;
  GameFiles original_;
  std::vector<std::string> paths_;     // of the data files
  std::vector<std::string> archives_;  // their paths
  Entries known_;
};

}  // namespace korvane
