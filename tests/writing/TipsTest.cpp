// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "support/GameFolder.h"
#include "writing/Tips.h"

namespace korvane {
namespace {

BlockTypeId TypeOf(std::string_view text) {
  return PlaceBehind(text).block;
}

TEST(Tips, TellWhatAKeyTakes) {
  const struct {
    const char* inside;
    const char* key;
    const char* takes;
  } cases[] = {
      {"Weapon W\n", "PrimaryDamage", "Takes a number."},
      {"Weapon W\n", "LeechRangeWeapon", "Takes Yes or No."},
      {"Weapon W\n", "FireFX", "Takes the name of: FXList."},
      {"Object O\n", "DisplayName", "Takes a label of the game's texts."},
      {"Object O\n WeaponSet\n", "Weapon", "Takes PRIMARY, SECONDARY or TERTIARY, then the name of: Weapon."},
      {"Object O\n Draw = W3DTankDraw M\n DefaultConditionState\n", "Model", "Takes the name of a model."},
  };
  for (const auto& each : cases) {
    const KeyFacts* facts = GameStructure::get().key(TypeOf(each.inside), each.key);
    ASSERT_NE(facts, nullptr) << each.key;
    EXPECT_EQ(WhatItTakes(*facts), each.takes) << each.key;
  }
  const std::string kindOf = WhatItTakes(*GameStructure::get().key(TypeOf("Object O\n"), "KindOf"));
  EXPECT_TRUE(kindOf.starts_with("Takes words such as IMMOBILE, SELECTABLE, ")) << kindOf;
  EXPECT_TRUE(kindOf.ends_with(" more.")) << kindOf;
}

TEST(Tips, AnExampleComesFromABlockOfTheSameKind) {
  const GameFolder game;
  game.ini("A.ini", "Weapon Other\n  ClipSize = 1\nEnd\n");
  game.ini("B.ini",
           "Object Hut\n  WeaponSet\n    Conditions = None\n  End\n  BuildCost = ; none\n  buildcost = 90 ; "
           "x\nEnd\n"
           "Object Inn\n  BuildCost = 70\nEnd\n");
  game.ini("C.ini", "Object Own\n  BuildCost = 5\nEnd\n");
  const CataloguePtr names = ReadCatalogue({game.path()});
  const auto example = [&](std::string_view inside, std::string_view key, std::string_view path,
                           std::string_view notIn = {}) {
    const auto found = ExampleOf(*names, {TypeOf(inside), key, path, notIn});
    return found ? found->line + " | " + found->header : std::string();
  };
  EXPECT_EQ(example("Object O\n", "BuildCost", ""), "BuildCost = | Object Hut");
  EXPECT_EQ(example("Object O\n", "BuildCost", "Data\\INI\\C.ini"), "BuildCost = 5 | Object Own");
  EXPECT_EQ(example("Object O\n", "BuildCost", "", "Object Hut"), "BuildCost = 70 | Object Inn");
  EXPECT_EQ(example("Object O\n WeaponSet\n", "Conditions", ""), "Conditions = None | Object Hut");
  EXPECT_EQ(example("Object O\n", "Conditions", ""), "");
  EXPECT_EQ(example("Object O\n", "ClipSize", ""), "");
}

TEST(Tips, FirstLinesSaySomething) {
  constexpr std::string_view kBlock =
      "Weapon W ; x\r\n\r\n ; comment\r\n  A = 1 // y\r\n  B = 2\r\n  C = 3\r\nEnd\r\nD = 4\r\n";
  EXPECT_EQ(FirstLines(kBlock, 2), std::vector<std::string>({"A = 1", "B = 2"}));
  EXPECT_EQ(FirstLines(kBlock, 9), std::vector<std::string>({"A = 1", "B = 2", "C = 3"}));
  EXPECT_TRUE(FirstLines("", 2).empty());
  const GameFolder game;
  game.write("Data/INI/A.ini", "Weapon V\r\nEnd\r\n" + std::string(kBlock));
  const CataloguePtr names = ReadCatalogue({game.path()});
  const auto found = names->definitions(GameStructure::get().space("Weapon"), "w");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(FirstLinesOf(found.front(), 2), std::vector<std::string>({"A = 1", "B = 2"}));
}

}  // namespace
}  // namespace korvane
