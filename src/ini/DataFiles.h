// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// The game's data files that the program knows, and where they lie below the game folder.

inline constexpr std::string_view kIniFolder = "\\Data\\INI\\";
inline constexpr std::string_view kObjectFolder = "\\Data\\INI\\Object\\";
inline constexpr std::string_view kObjectsBelowIni = "Object\\";  // the second below the first
inline constexpr std::string_view kGameProgram = "generals.exe";

inline constexpr std::string_view kWeaponFile = "Weapon.ini";
inline constexpr std::string_view kArmorFile = "Armor.ini";
inline constexpr std::string_view kLocomotorFile = "Locomotor.ini";
inline constexpr std::string_view kCommandSetFile = "CommandSet.ini";
inline constexpr std::string_view kCommandButtonFile = "CommandButton.ini";

// The files of the objects, in the order in which they are read.
inline constexpr std::array<std::string_view, 8> kObjectFiles = {
    "FactionUnit.ini",  "FactionBuilding.ini", "FactionProp.ini", "CivilianBuilding.ini",
    "CivilianUnit.ini", "CivilianProp.ini",    "NatureProp.ini",  "NatureUnit.ini"};

struct DataFile {
  std::string_view name;
  std::string_view folder;
};

inline constexpr auto kDataFiles = [] {
  constexpr std::array kOthers = {kWeaponFile, kArmorFile, kLocomotorFile, kCommandSetFile,
                                  kCommandButtonFile};
  std::array<DataFile, kObjectFiles.size() + kOthers.size()> files{};
  std::size_t at = 0;
  for (const std::string_view name : kObjectFiles) files[at++] = {name, kObjectFolder};
  for (const std::string_view name : kOthers) files[at++] = {name, kIniFolder};
  return files;
}();

// The program's path of a file below "\Data\INI\" of the game folder.
ProgramPath IniPath(std::string_view gameFolder, std::string_view relative);

// The program's path of an object file.
ProgramPath ObjectFilePath(std::string_view gameFolder, std::string_view fileName);

}  // namespace korvane
