// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// The relative path of a file in a database or an archive is data from outside. False for one that would
// leave the folder it belongs to, or mean something else than a file there on some machine: a drive or an
// alternate stream (":"), a separator at its beginning, "." and "..", an empty piece, a character that no
// file name may have, a blank or point at the end of a piece, a Windows device name (with an extension too).
bool IsSafeRelativePath(std::string_view relative);

// Where such a file goes: the game folder, a backslash and the relative path, in the program's path text. Or
// the reason why it goes nowhere: the path is not safe, or has a link on the way (the file itself included)
// that leads out of the game folder or nowhere. The game folder must exist.
struct RestoreTarget {
  std::string path;
  std::string reason;  // a piece of a sentence; empty when there is a path
};
RestoreTarget TargetOf(std::string_view gameFolder, std::string_view relative);

// The same path, or nothing.
std::optional<std::string> SafeTarget(std::string_view gameFolder, std::string_view relative);

}  // namespace korvane
