// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "ini/TableSink.h"

namespace korvane {

inline constexpr int kCommandSetSlots = 12;  // rows of the command sets' table

// What the parameter tables of weapons and command buttons show: one line here is one row there.

struct ParameterRow {
  std::string_view caption;
  std::string_view key{};  // none: a separator row
  EditKind kind = EditKind::typed;
  const ChoiceList& (*choices)() = nullptr;
};

// The choices as a list that all tables share, made when it is first asked for.
template <const auto& names>
const ChoiceList& SharedChoices() {
  static const ChoiceList list = std::make_shared<const std::vector<std::string>>(names.begin(), names.end());
  return list;
}

inline constexpr ParameterRow kSeparatorRow{kSeparatorCaption};

inline constexpr auto kDamageTypes =
    std::to_array<std::string_view>({"ARMOR_PIERCING", "AURORA_BOMB", "COMANCHE_VULCAN", "CRUSH", "EXPLOSION",
                                     "FLESHY_SNIPER", "Gattling", "JET_MISSILES", "KILL_PILOT", "LASER",
                                     "MELEE", "RADIATION", "SMALL_ARMS", "SNIPER", "INFANTRY_MISSILE"});

inline constexpr auto kDeathTypes = std::to_array<std::string_view>(
    {"BURNED", "CRUSHED", "EXPLODED", "LASERED", "NORMAL", "POISONED", "POISONED_BETA", "SUICIDED"});

inline constexpr auto kWeaponRows = std::to_array<ParameterRow>({
    {"Weapon Damage", "PrimaryDamage"},
    {"Weapon Damage Radius", "PrimaryDamageRadius"},
    kSeparatorRow,
    {"Weapon Speed", "WeaponSpeed"},
    {"Weapon Range", "AttackRange"},
    {"Weapon Recoil", "WeaponRecoil"},
    kSeparatorRow,
    {"Accuracy When Attacking Infantry", "ScatterRadiusVsInfantry"},
    kSeparatorRow,
    {"Minimum Target Pitch", "MinTargetPitch"},
    {"Maximum Target Pitch", "MaxTargetPitch"},
    kSeparatorRow,
    {"Damage Type", "DamageType", EditKind::choice, SharedChoices<kDamageTypes>},
    {"Death Type", "DeathType", EditKind::choice, SharedChoices<kDeathTypes>},
    kSeparatorRow,
    {"Projectile Object", "ProjectileObject"},
    {"Fire FX", "FireFX"},
    {"Fire Sound", "FireSound"},
});

inline constexpr auto kCommands = std::to_array<std::string_view>({"ATTACK_MOVE",
                                                                   "CANCEL_UNIT_BUILD",
                                                                   "CANCEL_UPGRADE",
                                                                   "COMBATDROP",
                                                                   "CONVERT_TO_CARBOMB",
                                                                   "DOZER_CONSTRUCT",
                                                                   "DOZER_CONSTRUCT_CANCEL",
                                                                   "EVACUATE",
                                                                   "EXECUTE_RAILED_TRANSPORT",
                                                                   "EXIT_CONTAINER",
                                                                   "FIRE_WEAPON",
                                                                   "GUARD",
                                                                   "GUARD_FLYING_UNITS_ONLY",
                                                                   "GUARD_WITHOUT_PURSUIT",
                                                                   "HACK_INTERNET",
                                                                   "HIJACK_VEHICLE",
                                                                   "OBJECT_UPGRADE",
                                                                   "PLACE_BEACON",
                                                                   "PLAYER_UPGRADE",
                                                                   "PURCHASE_SCIENCE",
                                                                   "SELL",
                                                                   "SET_RALLY_POINT",
                                                                   "SPECIAL_POWER",
                                                                   "SPECIAL_POWER_FROM_COMMAND_CENTER",
                                                                   "STOP",
                                                                   "SWITCH_WEAPON",
                                                                   "TOGGLE_OVERCHARGE",
                                                                   "UNIT_BUILD"});

inline constexpr auto kBorderTypes =
    std::to_array<std::string_view>({"ACTION", "BUILD", "NONE", "SYSTEM", "UPGRADE"});

inline constexpr auto kCommandButtonRows = std::to_array<ParameterRow>({
    {"Command Type", "Command", EditKind::choice, SharedChoices<kCommands>},
    kSeparatorRow,
    {"Button Border Type", "ButtonBorderType", EditKind::choice, SharedChoices<kBorderTypes>},
    {"Button Image ", "ButtonImage"},
    kSeparatorRow,
    {"Text Label", "TextLabel"},
    {"Description Label", "DescriptLabel"},
    kSeparatorRow,
    {"Object", "Object"},
    {"Options", "Options"},
    kSeparatorRow,
    {"SpecialPower", "SpecialPower"},
    kSeparatorRow,
    {"Radius Cursor Type", "RadiusCursorType"},
    {"Invalid Cursor Name", "InvalidCursorName"},
});

}  // namespace korvane
