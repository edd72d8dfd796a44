// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "support/AgainstSlowIni.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

// What the grammar looks at, and what looks like it.
constexpr std::array kPieces = {
    "Object",     "object",    "Weapon",      "Tank",  "tankHunter", "End",  "  End",
    "end ; note", "WeaponSet", "  WeaponSet", "Speed", "1",          "10",   " ",
    "  ",         "\t",        "=",           " = ",   ";",          "\r",   "\n",
    "\r\n",       "\r\n",      "\r\n  ",      "30",    "\xff",       "None", ""};

TEST(SParse, AgreesWithASlowReadingOfTheSameRules) {
  std::mt19937 chance(1);
  const auto text = [&chance](std::size_t longest) {
    std::string made;
    for (std::size_t i = chance() % longest; i > 0; --i) made += kPieces[chance() % kPieces.size()];
    return made;
  };
  const GameFolder game;
  for (int round = 0; round < 2000; ++round) {
    const std::string file = text(80);
    const std::string kind = chance() % 3 != 0 ? "Object" : text(3);
    const std::string name = chance() % 3 != 0 ? "Tank" : text(3);
    const std::string key = chance() % 3 != 0 ? "Speed" : text(3);
    game.write("Data/INI/Weapon.ini", file);
    ASSERT_EQ(DifferenceFromSlowIni(game.path(), file, kind, name, key), "")
        << testing::PrintToString(std::array{file, kind, name, key});
  }
}

}  // namespace
}  // namespace korvane
