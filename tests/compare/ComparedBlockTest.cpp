// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "compare/ComparedBlock.h"

namespace korvane {
namespace {

// "BuildCost=900>800", "-" for an absent value.
std::string Brief(const std::vector<KeyChange>& changes) {
  std::string brief;
  for (const KeyChange& change : changes) {
    if (!brief.empty()) brief += "; ";
    brief += change.key + '=' + change.former.value_or("-") + '>' + change.present.value_or("-");
  }
  return brief;
}

struct BlockCase {
  const char* former;
  const char* present;
  const char* changes;
};

constexpr BlockCase kCases[] = {
    {"Object A\n BuildCost = 900\nEnd\n", "Object A\n BuildCost = 800\nEnd\n", "BuildCost=900>800"},
    // Order, spacing, comments, "=" and the letter case of names say nothing; that of values does.
    {"Object A\n BuildCost = 1 ; dear\n Side = America\nEnd\n",
     "; a tank\nobject a\nSIDE America\n\n  buildcost=  1\nEND // A\n", ""},
    {"Object A\n Side = America\nEnd\n", "Object A\n Side = AMERICA\nEnd\n", "Side=America>AMERICA"},
    {"Object A\n Scale = 1 2\nEnd\n", "Object A\n Scale = 1  2\n Shadow = NONE\nEnd\n", "Shadow=->NONE"},
    {"Object A\n DisplayName = \"a  b\"\nEnd\n", "Object A\n DisplayName = \"a b\"\nEnd\n",
     "DisplayName=\"a  b\">\"a b\""},
    {"ObjectReskin A B\nEnd\n", "ObjectReskin A C\nEnd\n", "ObjectReskin=B>C"},
    // Modules go by their tags.
    {"Object A\n Behavior = AutoHealBehavior Tag_1\n  HealingAmount = 1\n End\n Body = ActiveBody Tag_2\n  "
     "MaxHealth = 1\n End\nEnd\n",
     "Object A\n Body = ActiveBody Tag_2\n  MaxHealth = 2\n End\n Behavior = HealBehavior Tag_1\n  "
     "HealingAmount "
     "= 1\n End\nEnd\n",
     "Body Tag_2 / MaxHealth=1>2; Behavior Tag_1=AutoHealBehavior>HealBehavior"},
    {"Object A\nEnd\n", "Object A\n Behavior = AutoHealBehavior Tag_1\n  HealingAmount = 3\n End\nEnd\n",
     "Behavior Tag_1=->AutoHealBehavior; Behavior Tag_1 / HealingAmount=->3"},
    {"Object A\n Draw = W3DModelDraw Tag\n  ConditionState = DAMAGED\n   Model = M\n  End\n End\nEnd\n",
     "Object A\n Draw = W3DModelDraw Tag\n  ConditionState = DAMAGED\n   Model = N\n  End\n End\nEnd\n",
     "Draw Tag / ConditionState DAMAGED / Model=M>N"},
    // Keys that occur several times are lists, in which those that begin alike belong together.
    {"Object A\n WeaponSet\n  Weapon = PRIMARY Gun\n  Weapon = SECONDARY Bow\n End\nEnd\n",
     "Object A\n WeaponSet\n  Weapon = SECONDARY Bomb\n  Weapon = TERTIARY Axe\n  Weapon = PRIMARY Gun\n "
     "End\nEnd\n",
     "WeaponSet / Weapon=SECONDARY Bow>SECONDARY Bomb; WeaponSet / Weapon=->TERTIARY Axe"},
    {"CommandSet A\n 1 = B\n 1 = B\nEnd\n", "CommandSet A\n 1 = B\nEnd\n", "1=B>-"},
    // So are blocks: those with the same first key belong together.
    {"Object A\n WeaponSet\n  Conditions = None\n  Weapon = PRIMARY A\n End\nEnd\n",
     "Object A\n WeaponSet\n  Conditions = HERO\n  Weapon = PRIMARY B\n End\n WeaponSet\n  Conditions = "
     "None\n  "
     "Weapon = PRIMARY C\n End\nEnd\n",
     "WeaponSet (2) / Weapon=PRIMARY A>PRIMARY C; WeaponSet (1)=->; WeaponSet (1) / Conditions=->HERO; "
     "WeaponSet (1) / Weapon=->PRIMARY B"},
    // What two blocks say is not what the two say together.
    {"Object A\n WeaponSet\n  Conditions = None\n  Weapon = PRIMARY A\n End\n WeaponSet\n  Conditions = "
     "HERO\n  "
     "Weapon = PRIMARY B\n End\nEnd\n",
     "Object A\n WeaponSet\n  Conditions = None\n  Weapon = PRIMARY B\n End\n WeaponSet\n  Conditions = "
     "HERO\n  "
     "Weapon = PRIMARY A\n End\nEnd\n",
     "WeaponSet (1) / Weapon=PRIMARY A>PRIMARY B; WeaponSet (2) / Weapon=PRIMARY B>PRIMARY A"},
};

TEST(ComparedBlock, DiffersByWhatItsKeysSay) {
  for (const BlockCase& each : kCases)
    EXPECT_EQ(Brief(CompareBlocks(ReadBlock(each.former, 1), ReadBlock(each.present, 1))), each.changes)
        << each.former << each.present;
}

TEST(ComparedBlock, KnowsWhereItsKeysStand) {
  const auto changes = CompareBlocks(ReadBlock("Weapon A\n\n Clip = 1\nEnd\n", 10),
                                     ReadBlock("Weapon A\n Clip = 2\n Range = 5\nEnd\n", 20));
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0], (KeyChange{"Clip", "1", "2", 12, 21}));
  EXPECT_EQ(changes[1], (KeyChange{"Range", {}, "5", 0, 22}));
}

}  // namespace
}  // namespace korvane
