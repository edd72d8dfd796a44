// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

#include "monkey/Chance.h"

namespace korvane {

// The files of a game folder: contents by the native path below it, with slashes.
using GameFiles = std::map<std::string, std::string>;

// A small game in which everything points at something, and an archive with one file.
GameFiles SmallGame();
// What that file holds.
std::string PackedText();
// The sample game of the project, or the small one where it is not there.
GameFiles SampleGame();
// Every data file damaged, each in its own way.
GameFiles DamagedGame(Chance& chance);

// What another program may have made of a data file.
std::string DamagedText(Chance& chance);

}  // namespace korvane
