// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvane {

// Reads a block of "Data/INI/Weapon.ini" below the game folder, and takes it and the whole file apart, with
// the parser and with the slow grammar. Gives the operation in which the two differ; empty when they agree.
std::string DifferenceFromSlowIni(const std::string& gameFolder, const std::string& file,
                                  const std::string& kind, const std::string& name, const std::string& key);

}  // namespace korvane
