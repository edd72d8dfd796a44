// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/TestGames.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "ini/DataFiles.h"
#include "stock/StockFiles.h"
#include "support/GameFolder.h"

namespace korvane {

namespace {

namespace fs = std::filesystem;

constexpr int kObjects = 12;
constexpr std::array kFactions = {"America", "China", "GLA", "CINE", "7th", "Other"};

std::string RelativePath(const DataFile& file) {
  std::string path = std::string(file.folder).substr(1) + std::string(file.name);
  for (char& c : path) c = c == '\\' ? '/' : c;
  return path;
}

std::string Number(int number) {
  return std::to_string(number);
}

std::string Object(int i) {
  std::string text = "Object " + std::string(kFactions[static_cast<std::size_t>(i) % kFactions.size()]) +
                     "Thing" + Number(i) + " ; a comment\n  BuildCost = " + Number(i * 100) +
                     "\n  BuildTime = 5.0\n  VisionRange = 150\n  ShroudClearingRange = 300\n";
  for (int set = 0; set < i % 3; ++set) {
    text += "  WeaponSet\n    Conditions = " + std::string(set > 0 ? "PLAYER_UPGRADE" : "None") +
            "\n    Weapon = PRIMARY Gun" + Number(i % 5) + "\n    Weapon = SECONDARY Gun1\n  End\n";
  }
  for (int locomotor = 0; locomotor < i % 4; ++locomotor) {
    text += "  Locomotor = SET_NORMAL Wheels" + Number(locomotor) + "\n";
  }
  return text + "  ArmorSet\n    Armor = Plate1\n  End\n  MaxHealth = 90.0\n  InitialHealth = 80.0\nEnd\n\n";
}

// Blocks of a kind named `name` and a number.
std::string Blocks(const char* kind, const char* name, const char* lines) {
  std::string text = "; " + std::string(kind) + "s\n";
  for (int i = 0; i < kObjects; ++i) {
    text += std::string(kind) + ' ' + name + Number(i) + '\n' + lines + "End\n\n";
  }
  return text;
}

std::string TextOf(const DataFile& file) {
  if (file.name == "Weapon.ini")
    return Blocks("Weapon", "Gun", "  PrimaryDamage = 10.0\n  AttackRange = 5\n");
  if (file.name == "Armor.ini") return Blocks("Armor", "Plate", "  Armor = CRUSH 50%\n  Armor = FLAME 0%\n");
  if (file.name == "Locomotor.ini") {
    return Blocks("Locomotor", "Wheels", "  Surfaces = GROUND\n  Speed = 40\n  TurnRate = 90\n");
  }
  if (file.name == "CommandButton.ini") return Blocks("CommandButton", "Button", "  Command = STOP\n");
  if (file.name == "CommandSet.ini") return Blocks("CommandSet", "Set", "  1 = Button1\n  12 = Button3\n");
  std::string text;
  for (int i = 0; i < kObjects; ++i) text += Object(i);
  return text;
}

// One hides a file that the folder may have.
StockRecords PackedTexts() {
  return {{"Data\\INI\\Packed.ini",
           GameFolder::CrLf("Science SCIENCE_Packed\n  PrerequisiteSciences = SCIENCE_Nowhere\nEnd\n")},
          {"Data\\INI\\Object\\Packed.ini", GameFolder::CrLf(Object(kObjects) + Object(kObjects + 1))},
          {"Data\\INI\\Weapon.ini", GameFolder::CrLf(Blocks("Weapon", "Packed", "  AttackRange = 5\n"))}};
}

void AddArchives(GameFiles& files) {
  const StockRecords texts = PackedTexts();
  files["INI.big"] = ArchiveBytes({texts.front()});
  files["Patch.BIG"] = ArchiveBytes(texts);
}

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string EveryByte() {
  std::string bytes;
  for (int i = 0; i < 1024; ++i) bytes += static_cast<char>(i % 256);
  return bytes;
}

std::string Repeated(const char* text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

}  // namespace

bool IsPackedText(const std::string& bytes) {
  const StockRecords texts = PackedTexts();
  return std::ranges::find(texts, bytes, &StockRecords::value_type::second) != texts.end();
}

std::string ChangedArchive(Chance& chance) {
  StockRecords texts = PackedTexts();
  switch (chance.below(5)) {
    case 0:
      return DamagedText(chance);
    case 1:
      return ArchiveBytes(texts).substr(0, static_cast<std::size_t>(chance.below(200)));
    case 2:
      std::ranges::reverse(texts);
      return ArchiveBytes(texts);
    case 3:
      return ArchiveBytes({texts.back()});
    default:
      return ArchiveBytes(texts);
  }
}

GameFiles SmallGame() {
  GameFiles files{{"generals.exe", ""}};
  for (const DataFile& file : kDataFiles) files[RelativePath(file)] = GameFolder::CrLf(TextOf(file));
  AddArchives(files);
  return files;
}

GameFiles SampleGame() {
  const fs::path sample = KORVANE_SAMPLE_GAME;
  std::error_code error;
  GameFiles files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(sample, error)) {
    if (entry.is_regular_file()) {
      files[entry.path().lexically_relative(sample).generic_string()] = ReadAll(entry.path());
    }
  }
  if (files.empty()) return SmallGame();
  AddArchives(files);
  return files;
}

std::string DamagedText(Chance& chance) {
  switch (chance.below(9)) {
    case 0:
      return EveryByte();
    case 1:
      return chance.bytes(chance.below(5000));
    case 2:  // no line end
      return "Object " + std::string(static_cast<std::size_t>(chance.below(600'000)), 'x');
    case 3:  // no End
      return Repeated("Object AmericaEndless\r\nWeapon Gun\r\nArmor Plate\r\n  Locomotor = A B\r\n", 200);
    case 4:  // no name
      return Repeated("Object\r\nWeapon \r\nArmor  \r\nLocomotor\r\nCommandSet \r\nEnd\r\n", 50);
    case 5:
      return "Object Wide\r\n  MaxHealth = " + std::string(5000, '9') + "\r\nEnd\r\n";
    case 6:  // Unix line ends
      return Repeated("Object GLAUnix\n  MaxHealth = 1\nEnd\n", 20);
    case 7:
      return Repeated("Object ChinaMany\r\n  WeaponSet\r\n    Weapon = PRIMARY A\r\n  End\r\nEnd\r\n", 2000);
    default:
      return {};
  }
}

GameFiles DamagedGame(Chance& chance) {
  GameFiles files = SmallGame();
  for (auto& [path, bytes] : files) {
    if (path != "generals.exe" && !chance.oneIn(5)) bytes = DamagedText(chance);
  }
  return files;
}

}  // namespace korvane
