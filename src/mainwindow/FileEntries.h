// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>

#include "ini/DataFiles.h"

namespace korvane {

// The data files as the Files menu and the toolbar list them; an empty entry is a separator.
inline constexpr std::array<const char*, 17> kFileEntries = {"FactionUnit.ini",
                                                             "FactionBuilding.ini",
                                                             "FactionProp.ini",
                                                             "",
                                                             "CivilianUnit.ini",
                                                             "CivilianBuilding.ini",
                                                             "CivilianProp.ini",
                                                             "",
                                                             "NatureUnit.ini",
                                                             "NatureProp.ini",
                                                             "",
                                                             "Armor.ini",
                                                             "Locomotor.ini",
                                                             "Weapon.ini",
                                                             "",
                                                             "CommandButton.ini",
                                                             "CommandSet.ini"};
static_assert(std::ranges::all_of(kDataFiles, [](const DataFile& file) {
  return std::ranges::count(kFileEntries, file.name) == 1;
}));

}  // namespace korvane
