// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvane {

// Where a path of the program lies on this machine. The program's paths are UTF-8 text with backslashes, in
// the game's own spelling. On Windows they are used as they are. Elsewhere a backslash is a separator, a
// component that does not exist in its exact spelling is matched without regard to letter case (of several
// matches the first in byte order), and a drive letter is looked up in the Wine prefix ($WINEPREFIX, else
// ~/.wine). A component that matches nothing is kept as it is written.
std::filesystem::path NativePath(std::string_view path);

// The program's text of a path on this machine: UTF-8 with backslashes.
std::string ProgramPath(const std::filesystem::path& native);

// True when the program's path names an ordinary file, even an empty one. Whether it can be read is not
// asked. Anything else, a folder or a text that is no path included, gives false.
bool FileExists(std::string_view path);

// True when the program's path names a folder.
bool FolderExists(std::string_view path);

}  // namespace korvane
