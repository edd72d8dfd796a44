// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/LineEnds.h"
#include "ini/TVItem.h"

namespace korvane {

// A file with objects that is none of the eight object files.
struct OtherFile {
  std::string path;                  // the program's, below "\Data\INI\"
  std::vector<std::string> objects;  // their names in the order of the file, in the file's bytes
  LineEnds lineEnds;
};

// All files of the game folder (the program's path) with an object header in them: a line in the first column
// whose first word is Object or ObjectReskin. Those below "Object\" come first; each in the order of their
// paths, letter case ignored. A file whose headers all stand behind Unix line ends has no objects, since it
// is read as one line. Links to folders are not followed, and what cannot be read is passed over. `yield` is
// called for every file.
std::vector<OtherFile> FindOtherFiles(std::string_view gameFolder, const Yield& yield);

// What the tree calls such a file: the path below "Object\", or "INI\" and the path.
std::string NameOfOtherFile(std::string_view path);

}  // namespace korvane
