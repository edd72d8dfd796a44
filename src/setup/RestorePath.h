// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// Where a file of a database or an archive goes: the game folder, a backslash and the relative path, in the
// program's path text. The relative path is data from outside, so nothing is given for one that would leave
// the game folder or mean something else than a file on some machine: a drive or an alternate stream (":"), a
// separator at its beginning, "." and "..", an empty piece, a character that no file name may have, a blank
// or point at the end of a piece, a Windows device name (with an extension too), or a link on the way (of the
// file itself too) that leads out of the game folder or nowhere. The game folder must exist.
std::optional<std::string> SafeTarget(std::string_view gameFolder, std::string_view relative);

}  // namespace korvane
