// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace korvane {

// The words by which blocks are cut out and shown.

// How the first and the last line of a weapon set in an object's block begin.
inline constexpr std::string_view kWeaponSetHeader = "  WeaponSet";
inline constexpr std::string_view kWeaponSetEnd = "  End";

// The keys of a locomotor that are shown, in the order of their fields.
inline constexpr std::array<std::string_view, 9> kLocomotorKeys = {
    "Surfaces",        "Speed",        "SpeedDamaged",        "TurnRate",
    "TurnRateDamaged", "Acceleration", "AccelerationDamaged", "Braking",
    "MinTurnSpeed"};

}  // namespace korvane
