// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "stock/BigArchive.h"

namespace korvane {

// The program's paths of the archives (".big", in any letter case) that lie in a folder itself, in the byte
// order of their names. std::runtime_error when the folder cannot be read.
std::vector<std::string> ArchivesIn(std::string_view folder);

// The archives of a game folder, and the files in them. Of a file that several archives have, the one in the
// first of them counts. Letter case and the kind of separator in a path do not count.
class GameArchives {
 public:
  // Reads the lists of files only. Nothing is thrown: what cannot be read is among failures().
  explicit GameArchives(std::string_view gameFolder);

  // True when the folder holds no archive, not even a damaged one.
  bool empty() const { return archives_.empty() && failures_.empty(); }
  // One sentence for the user for each archive that cannot be read.
  const std::vector<std::string>& failures() const { return failures_; }

  // The names of the archives that have the file; it comes from the first one.
  std::vector<std::string> holding(std::string_view path) const;
  // The file's bytes in pieces; nothing when no archive has it. ArchiveError when they cannot all be read;
  // some may have come before.
  void read(std::string_view path, const TakePiece& take);

 private:
  struct Archive {
    std::string name;
    BigArchive files;
  };

  void open(const std::string& path);

  std::vector<Archive> archives_;
  std::vector<std::string> failures_;
};

}  // namespace korvane
