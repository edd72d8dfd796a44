// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BenchDesk.h"

namespace korvane {

// What stands beside other programs in `scripts/bench --peers`, each in a process of its own. A QApplication
// must be there.

// Finds the text (UTF-8, in any letter case) in all files of the game folder (native path) as "find in files"
// does, and prints for each run: the lines that have it, the milliseconds, the milliseconds of processor
// time.
void FindAsPeer(const std::filesystem::path& game, const std::string& text, int runs);

// The program with the manual editor open on the data file of this name; runs until it is ended.
void EditAsPeer(const BenchFolders& folders, const std::string& file);

}  // namespace korvane
