// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// A second version of the comparison, made to be seen to be right: for texts in which every block is closed
// and none stands twice in another one, and every name is defined once.

// Of each item, "Weapon Gun", all it says: "Behavior Tag/HealingAmount=3".
using SlowItems = std::map<std::string, std::multiset<std::string>>;

void SlowRead(std::string_view text, SlowItems& items);
// "-Weapon Gun", "+Weapon Gun", and of items on both sides "Weapon Gun -Clip=1" and "Weapon Gun +Clip=2".
std::vector<std::string> SlowDifferences(const SlowItems& former, const SlowItems& present);

}  // namespace korvane
