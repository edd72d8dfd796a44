// SPDX-License-Identifier: GPL-3.0-or-later
#include "GameGenerator.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "GeneratedText.h"
#include "IniPage.h"

namespace korvane {

namespace {

// How much of everything there is at factor 1.
constexpr int kWeapons = 900;
constexpr int kArmours = 90;
constexpr int kLocomotors = 250;
constexpr int kButtons = 1600;
constexpr int kCommandSets = 400;

struct ObjectFile {
  std::string_view name;
  std::string_view kind;  // the middle of every object's name
  int objects;
  int lines;
  int column;  // of the "=" in aligned lines
  bool ofFaction;
};

constexpr std::array kObjectFiles = {
    ObjectFile{"FactionUnit", "Vehicle", 225, 60'000, 33, true},
    ObjectFile{"FactionBuilding", "Works", 85, 43'000, 38, true},
    ObjectFile{"FactionProp", "Banner", 1, 42, 22, true},
    ObjectFile{"CivilianBuilding", "House", 285, 37'000, 25, false},
    ObjectFile{"CivilianUnit", "Cart", 310, 21'000, 22, false},
    ObjectFile{"CivilianProp", "Kerb", 270, 10'400, 16, false},
    ObjectFile{"NatureProp", "Shrub", 195, 7'900, 28, false},
    ObjectFile{"NatureUnit", "Beast", 2, 140, 18, false},
};

constexpr std::array<std::string_view, 5> kSides = {"America", "China", "GLA", "CINE", "Free"};
constexpr std::array<std::string_view, 12> kPlaces = {"Abbey", "Bay",   "Cliff", "Dale",  "Elm", "Ford",
                                                      "Glen",  "Heath", "Marsh", "North", "4th", "Weir"};
constexpr std::array<std::string_view, 6> kStates = {"DAMAGED",    "REALLYDAMAGED", "NIGHT",
                                                     "SNOW NIGHT", "MOVING",        "FIRING_A"};
constexpr std::array<std::string_view, 4> kConditions = {"None", "PLAYER_UPGRADE", "VETERAN", "HERO"};
constexpr std::array<std::string_view, 3> kSlots = {"PRIMARY", "SECONDARY", "TERTIARY"};
constexpr std::array<std::string_view, 3> kGaits = {"SET_NORMAL", "SET_PANIC", "SET_WANDER"};
constexpr std::array<std::string_view, 16> kDamages = {
    "DEFAULT", "CRUSH", "ARMOR_PIERCING", "SMALL_ARMS",  "GATTLING",   "RADIATION", "FLAME", "LASER",
    "SNIPER",  "MELEE", "JET_MISSILES",   "AURORA_BOMB", "KILL_PILOT", "EXPLOSION", "WATER", "POISON"};
constexpr std::array<std::string_view, 5> kCommands = {"UNIT_BUILD", "DOZER_CONSTRUCT", "STOP", "GUARD",
                                                       "SPECIAL_POWER"};

class Generator {
 public:
  Generator(std::filesystem::path folder, int factor) : folder_(std::move(folder)), factor_(factor) {}

  void writeAll() const {
    for (const ObjectFile& file : kObjectFiles) writeObjects(file);
    writeBlocks("Weapon", kWeapons, 12'000, 34, &Generator::weaponRows);
    writeBlocks("Armor", kArmours, 1'600, 0, &Generator::armourRows);
    writeBlocks("Locomotor", kLocomotors, 5'400, 26, &Generator::locomotorRows);
    writeBlocks("CommandSet", kCommandSets, 5'500, 0, &Generator::commandSetRows);
    writeBlocks("CommandButton", kButtons, 9'600, 36, &Generator::buttonRows);
  }

 private:
  using Rows = void (Generator::*)(IniPage& page, int index, int lines) const;

  void writeBlocks(std::string_view kind, int blocks, int lines, int column, Rows rows) const {
    IniPage file(column);
    for (int i = 0; i < blocks * factor_; ++i) {
      IniPage body(column);
      const int share = Share(lines, blocks, i);
      (this->*rows)(body, i, share - 2);
      file.line(std::string(kind) + ' ' + Numbered(kind, i));
      file.append(body);
      file.fillWithRemarks(share - 2 - body.lines());
      file.line("End");
    }
    file.save(folder_ / "Data" / "INI" / (std::string(kind) + ".ini"));
  }

  void writeObjects(const ObjectFile& what) const {
    IniPage file(what.column);
    for (int i = 0; i < what.objects * factor_; ++i) {
      IniPage rules(what.column);
      writeRules(rules, what, i);
      file.line("Object " + objectName(what, i));
      writeLooks(file, i, Share(what.lines, what.objects, i) - 2 - rules.lines());
      file.append(rules);
      file.line("End");
    }
    file.save(folder_ / "Data" / "INI" / "Object" / (std::string(what.name) + ".ini"));
  }

  static std::string objectName(const ObjectFile& what, int index) {
    const std::string_view begin = what.ofFaction ? Pick(kSides, index) : Pick(kPlaces, index);
    return Numbered(std::string(begin) + std::string(what.kind), index);
  }

  // The sub-blocks for models and animations that make up most of an object's lines.
  static void writeLooks(IniPage& file, int index, int lines) {
    constexpr int kStateLines = 6;
    int left = lines - 2;
    file.line("  Draw = ModelDraw Looks_01");
    for (int state = 0; left >= kStateLines; ++state, left -= kStateLines) {
      const std::string model = Numbered("model", index);
      file.line("    ConditionState = " + std::string(Pick(kStates, state + index)));
      file.row(6, "Model", model);
      file.row(6, "Animation", model + ".move" + std::to_string(state));
      file.row(6, "AnimationMode", state % 3 == 0 ? "ONCE" : "LOOP");
      file.row(6, "TransitionKey", "KEY_" + std::to_string(state));
      file.line("    End");
    }
    file.fillWithRemarks(left);
    file.line("  End");
  }

  void writeRules(IniPage& page, const ObjectFile& what, int index) const {
    page.row(2, "DisplayName", "OBJECT:" + objectName(what, index));
    page.row(2, "BuildCost", std::to_string(Between(10, 480, index) * 5));
    page.row(2, "BuildTime", std::to_string(Between(3, 45, index)) + ".0", "seconds");
    page.row(2, "VisionRange", std::to_string(Between(50, 300, index)));
    page.row(2, "ShroudClearingRange", std::to_string(Between(100, 500, index)));
    if (what.ofFaction) writeWeaponSets(page, index);
    writeArmourSet(page, index);
    page.row(2, "CommandSet", Numbered("CommandSet", Between(0, kCommandSets * factor_ - 1, index)));
    writeBody(page, index);
    writeLocomotors(page, index);
  }

  void writeWeaponSets(IniPage& page, int index) const {
    for (int set = 0; set <= index % 4; ++set) {
      page.line("  WeaponSet");
      page.row(4, "Conditions", Pick(kConditions, set));
      for (int slot = 0; slot <= (index + set) % 3; ++slot) {
        const int weapon = Between(0, kWeapons * factor_ - 1, index * 16 + set * 4 + slot);
        page.row(4, "Weapon", std::string(Pick(kSlots, slot)) + ' ' + Numbered("Weapon", weapon));
      }
      page.line("  End");
    }
  }

  void writeArmourSet(IniPage& page, int index) const {
    page.line("  ArmorSet");
    page.row(4, "Conditions", "None");
    page.row(4, "Armor", Numbered("Armor", Between(0, kArmours * factor_ - 1, index)));
    page.line("  End");
  }

  static void writeBody(IniPage& page, int index) {
    const std::string health = std::to_string(Between(8, 400, index) * 10) + ".0";
    page.line("  Body = ActiveBody Part_02");
    page.row(4, "MaxHealth", health);
    page.row(4, "InitialHealth", health);
    page.line("  End");
  }

  void writeLocomotors(IniPage& page, int index) const {
    for (int i = 0; i <= index % 3; ++i) {
      const int locomotor = Between(0, kLocomotors * factor_ - 1, index * 3 + i);
      page.row(2, "Locomotor", std::string(Pick(kGaits, i)) + ' ' + Numbered("Locomotor", locomotor));
    }
  }

  void weaponRows(IniPage& page, int index, int /*lines*/) const {
    page.row(2, "PrimaryDamage", std::to_string(Between(5, 300, index)) + ".0");
    page.row(2, "PrimaryDamageRadius", std::to_string(Between(0, 60, index)) + ".0",
             "0 hits one target only");
    page.row(2, "AttackRange", std::to_string(Between(50, 450, index)) + ".0");
    page.row(2, "DamageType", Pick(kDamages, index), "see the armours");
    page.row(2, "DeathType", index % 3 == 0 ? "EXPLODED" : "NORMAL");
    page.row(2, "WeaponSpeed", std::to_string(Between(90, 999, index)));
    page.row(2, "WeaponRecoil", std::to_string(Between(0, 15, index)));
    page.row(2, "ProjectileObject", Numbered("Projectile", index));
    page.row(2, "FireFX", Numbered("FX_Muzzle", index % 40), "played at the muzzle");
    page.row(2, "FireSound", Numbered("Shot", index % 70));
  }

  void armourRows(IniPage& page, int index, int lines) const {
    for (int i = 0; i < std::min<int>(lines, kDamages.size()); ++i) {
      page.line("  Armor = " + std::string(Pick(kDamages, i)) + ' ' +
                std::to_string(Between(0, 200, index * 16 + i)) + "%  ; of what hits it");
    }
  }

  void locomotorRows(IniPage& page, int index, int /*lines*/) const {
    page.row(2, "Surfaces", index % 5 == 0 ? "AIR" : "GROUND RUBBLE");
    for (const std::string_view key : {"Speed", "SpeedDamaged", "TurnRate", "TurnRateDamaged", "Acceleration",
                                       "AccelerationDamaged", "Braking", "MinTurnSpeed"}) {
      page.row(2, key, std::to_string(Between(0, 400, index + static_cast<int>(key.size()))),
               "per second, on the map");
    }
    page.row(2, "Appearance", index % 2 == 0 ? "TREADS" : "FOUR_WHEELS");
  }

  void commandSetRows(IniPage& page, int index, int lines) const {
    for (int slot = 1; slot <= std::min(lines, 12); ++slot) {
      const int button = Between(0, kButtons * factor_ - 1, index * 12 + slot);
      page.line("  " + std::to_string(slot) + " = " + Numbered("CommandButton", button));
    }
  }

  void buttonRows(IniPage& page, int index, int /*lines*/) const {
    const ObjectFile& built = kObjectFiles[index % 2 == 0 ? 0 : 1];
    page.row(2, "Command", Pick(kCommands, index));
    page.row(2, "Object", objectName(built, Between(0, built.objects * factor_ - 1, index)));
    page.row(2, "TextLabel", Numbered("BAR:Button", index));
    page.row(2, "ButtonImage", Numbered("icon", index));
  }

  std::filesystem::path folder_;
  int factor_;
};

}  // namespace

void GenerateGame(const std::filesystem::path& folder, int factor) {
  std::filesystem::create_directories(folder / "Data" / "INI" / "Object");
  std::ofstream program(folder / "generals.exe", std::ios::binary);
  Generator(folder, factor).writeAll();
}

}  // namespace korvane
