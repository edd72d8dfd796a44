// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

#include "monkey/Chance.h"

namespace korvane {

// The files of a game folder: contents by the native path below it, with slashes.
using GameFiles = std::map<std::string, std::string>;

// A small game in which everything points at something, and two archives.
GameFiles SmallGame();
// Whether the bytes are what a text of some archive holds.
bool IsPackedText(const std::string& bytes);
// What another program may make of an archive: others of the same texts, or damage.
std::string ChangedArchive(Chance& chance);
// The sample game of the project, or the small one where it is not there.
GameFiles SampleGame();
// Every data file damaged, each in its own way.
GameFiles DamagedGame(Chance& chance);

// What another program may have made of a data file.
std::string DamagedText(Chance& chance);

}  // namespace korvane
