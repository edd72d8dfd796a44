// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ini/TVItem.h"

namespace korvane {

// The weapon sets of an object's text, and an empty text behind them. `yield` is called for every line.
std::vector<std::string> WeaponSetsOf(std::string_view objectText, const Yield& yield = {});

// A word in a weapon's place that is a switch or the weapon set's own header.
bool IsNoWeapon(std::string_view word);

// A line of an armour type, taken apart.
struct ArmourLine {
  std::string damageType;
  std::string percentage;
};
ArmourLine ArmourLineOf(std::string line);

// The lines of an armour type's text that stand for damage types: all between the first and the last that
// hold something.
std::vector<std::string_view> ArmourLinesOf(std::string_view text);

}  // namespace korvane
