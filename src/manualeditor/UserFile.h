// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ManualEditRequest.h"

namespace korvane {

// For a file that the user names by its path (the program's) and not by what it holds: only an INI file of
// the game folder, by whatever way the path leads there, can be changed.
ManualEditRequest RequestForUserFile(const QString& file, const Folders& folders);

// Whether a file with this path below the game folder is one of those that the catalogue reads.
bool IsDataFile(const QString& path);

}  // namespace korvane
