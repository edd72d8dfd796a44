// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace korvane {

// The game's data files that the program knows, and where they lie below the game folder.

inline constexpr std::string_view kIniFolder = "\\Data\\INI\\";
inline constexpr std::string_view kObjectFolder = "\\Data\\INI\\Object\\";
inline constexpr std::string_view kGameProgram = "generals.exe";

inline constexpr std::string_view kWeaponFile = "Weapon.ini";
inline constexpr std::string_view kArmorFile = "Armor.ini";
inline constexpr std::string_view kLocomotorFile = "Locomotor.ini";
inline constexpr std::string_view kCommandSetFile = "CommandSet.ini";
inline constexpr std::string_view kCommandButtonFile = "CommandButton.ini";

struct DataFile {
  std::string_view name;
  std::string_view folder;
};

inline constexpr std::array<DataFile, 13> kDataFiles = {{
    {"FactionBuilding.ini", kObjectFolder},
    {"FactionUnit.ini", kObjectFolder},
    {"FactionProp.ini", kObjectFolder},
    {"CivilianBuilding.ini", kObjectFolder},
    {"CivilianUnit.ini", kObjectFolder},
    {"CivilianProp.ini", kObjectFolder},
    {"NatureProp.ini", kObjectFolder},
    {"NatureUnit.ini", kObjectFolder},
    {kWeaponFile, kIniFolder},
    {kArmorFile, kIniFolder},
    {kLocomotorFile, kIniFolder},
    {kCommandSetFile, kIniFolder},
    {kCommandButtonFile, kIniFolder},
}};

// The program's path of a file below "\Data\INI\" of the game folder.
std::string IniPath(std::string_view gameFolder, std::string_view relative);

// The program's path of an object file.
std::string ObjectFilePath(std::string_view gameFolder, std::string_view fileName);

}  // namespace korvane
