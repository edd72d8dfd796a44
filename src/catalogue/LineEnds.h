// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// How the lines of a file end. Only a CR ends a line when the file is read.
struct LineEnds {
  std::size_t lf = 0;     // LFs without a CR before them
  bool hasOther = false;  // there is a CR somewhere
};

// A file with Unix line ends.
struct UnixFile {
  std::string path;  // the program's, below "\Data\INI\"
  LineEnds lineEnds;
};

// Those of the data files that the program knows.
std::vector<UnixFile> DataFilesWithUnixLineEnds(std::string_view gameFolder);

// Those of these files that have Unix line ends now.
std::vector<UnixFile> StillWithUnixLineEnds(std::string_view gameFolder, const std::vector<UnixFile>& files);

}  // namespace korvane
