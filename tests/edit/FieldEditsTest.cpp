// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "support/AgainstSlowEdits.h"

namespace korvane {
namespace {

std::string CrLf(std::string_view text) {
  std::string lines;
  for (const char c : text) lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return lines;
}

Field Of(std::string_view key) {
  return ObjectField(key).value();
}
Field Handling(std::size_t number) {
  return HandlingField(number).value();
}
Field Row(std::string_view kind, std::string_view caption) {
  return TableField(kind, caption).value();
}

struct Case {
  const char* what;
  std::string_view kind;
  const char* before;
  std::vector<FieldEdit> edits;
  const char* after;
  const char* refusal = "";  // the first one; then `after` does not matter
};
std::ostream& operator<<(std::ostream& out, const Case& c) {
  return out << c.what;
}

class FieldEdits : public testing::TestWithParam<Case> {};

TEST_P(FieldEdits, ChangeTheShownWordOrAddALineOrAreRefused) {
  const Case& c = GetParam();
  const BlockName name{c.kind, "Tank"};
  const std::string before = CrLf(c.before);
  EXPECT_EQ(DifferenceFromSlowEdits(before, name, c.edits), "");
  const FieldPlan plan = PlanFieldEdits(before, name, c.edits);
  std::string refusal;
  for (const Refusal& each : plan.refusals) refusal += refusal.empty() ? each.reason : "";
  EXPECT_EQ(refusal, c.refusal);
  EXPECT_EQ(WithLineEdits(before, plan.edits), plan.refused() ? before : CrLf(c.after));
}

const Case kKeys[] = {
    {"the word alone",
     "Object",
     "Object Tank\n  BuildCost  =   900   ; was 800\nEnd\n",
     {{Of("BuildCost"), "1000"}},
     "Object Tank\n  BuildCost  =   1000   ; was 800\nEnd\n"},
    {"the same value",
     "Object",
     "Object Tank\n  BuildCost = 900\nEnd\n",
     {{Of("BuildCost"), "900"}},
     "Object Tank\n  BuildCost = 900\nEnd\n"},
    {"several at once",
     "Object",
     "Object Tank\n  BuildCost = 900\n  BuildTime = 8.0\n  VisionRange = 150\nEnd\n",
     {{Of("VisionRange"), "99"}, {Of("BuildCost"), "1"}, {Of("BuildTime"), "22.5"}},
     "Object Tank\n  BuildCost = 1\n  BuildTime = 22.5\n  VisionRange = 99\nEnd\n"},
    {"the first block of the name",
     "Object",
     "Object Tank ; a\n  BuildCost = 1\nEnd\nObject Tank\n  BuildCost = 2\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "Object Tank ; a\n  BuildCost = 3\nEnd\nObject Tank\n  BuildCost = 2\nEnd\n"},
    {"a line beside its like",
     "Object",
     "Object Tank\n  Side = A\n    BuildTime = 8\n  KindOf = X\nEnd\n",
     {{Of("BuildCost"), "900"}},
     "Object Tank\n  Side = A\n    BuildCost = 900\n    BuildTime = 8\n  KindOf = X\nEnd\n"},
    {"lines beside each other",
     "Object",
     "Object Tank\n  BuildCost = 8\n  KindOf = X\nEnd\n",
     {{Of("ShroudClearingRange"), "3"}, {Of("BuildTime"), "1"}, {Of("VisionRange"), "2"}},
     "Object Tank\n  BuildCost = 8\n  BuildTime = 1\n  VisionRange = 2\n  ShroudClearingRange = 3\n  KindOf "
     "= X\nEnd\n"},
    {"a line behind the block's keys",
     "Object",
     "Object Tank\n  Side = A\n  Body = ActiveBody ModuleTag_01\n    MaxHealth = 5\n  End\nEnd\n",
     {{Of("BuildCost"), "900"}},
     "Object Tank\n  Side = A\n  BuildCost = 900\n  Body = ActiveBody ModuleTag_01\n    MaxHealth = 5\n  "
     "End\nEnd\n"},
    {"a line behind the header",
     "Object",
     "Object Tank\nEnd\n",
     {{Of("BuildCost"), "900"}},
     "Object Tank\n  BuildCost = 900\nEnd\n"},
    {"health where the other stands",
     "Object",
     "Object Tank\n  Body = ActiveBody ModuleTag_01\n    MaxHealth = 5\n  End\nEnd\n",
     {{Of("InitialHealth"), "4"}},
     "Object Tank\n  Body = ActiveBody ModuleTag_01\n    MaxHealth = 5\n    InitialHealth = 4\n  End\nEnd\n"},
    {"armour in its set",
     "Object",
     "Object Tank\n  ArmorSet\n    Conditions = None\n    DamageFX = X\n  End\nEnd\n",
     {{Of("Armor"), "Plate"}},
     "Object Tank\n  ArmorSet\n    Conditions = None\n    Armor = Plate\n    DamageFX = X\n  End\nEnd\n"},
    {"the first armour",
     "Object",
     "Object Tank\n  ArmorSet\n    Armor = A\n  End\n  ArmorSet\n    Armor = B\n  End\nEnd\n",
     {{Of("Armor"), "C"}},
     "Object Tank\n  ArmorSet\n    Armor = C\n  End\n  ArmorSet\n    Armor = B\n  End\nEnd\n"},
    {"a handling value",
     "Locomotor",
     "Locomotor Tank\n  Surfaces = GROUND\n  Speed = 40 ;30\nEnd\n",
     {{Handling(1), "50"}, {Handling(2), "20"}, {Handling(0), "AIR"}},
     "Locomotor Tank\n  Surfaces = AIR\n  Speed = 50 ;30\n  SpeedDamaged = 20\nEnd\n"},
    {"rows of a weapon",
     "Weapon",
     "Weapon Tank\n  PrimaryDamage = 4\n  AttackRange = 9\nEnd\n",
     {{Row("Weapon", "Weapon Damage"), "5"}, {Row("Weapon", "Damage Type"), "LASER"}},
     "Weapon Tank\n  PrimaryDamage = 5\n  AttackRange = 9\n  DamageType = LASER\nEnd\n"},
    {"a row of a button",
     "CommandButton",
     "CommandButton Tank\n  Command = STOP\n  Object = A\nEnd\n",
     {{Row("CommandButton", "Object"), "B"}},
     "CommandButton Tank\n  Command = STOP\n  Object = B\nEnd\n"},
    {"a quoted word",
     "Object",
     "Object Tank\n  BuildCost = \"900\"\nEnd\n",
     {{Of("BuildCost"), "5"}},
     "Object Tank\n  BuildCost = 5\nEnd\n"},
};
const Case kRefusedKeys[] = {
    {"lines run together",
     "Object",
     "Object Tank\n  BuildCost = 1\n  BuildCost = 2\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "",
     "it shows 2 lines run together"},
    {"one of two",
     "Object",
     "Object Tank\n  BuildCost = 1\n  BuildTime = 2\n  BuildTime = 2\nEnd\n",
     {{Of("BuildCost"), "3"}, {Of("BuildTime"), "4"}},
     "",
     "it shows 2 lines run together"},
    {"a longer key",
     "Object",
     "Object Tank\n  BuildCostFactor = 1\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "",
     "it shows the key 'BuildCostFactor'"},
    {"a longer name",
     "Object",
     "Object TankWreck\n  BuildCost = 1\nEnd\nObject Tank\n  BuildCost = 2\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "",
     "its value is that of a block with a longer name, which stands first"},
    {"no block",
     "Object",
     "Object Jeep\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "",
     "the file has no block of the name Tank"},
    {"a reskin",
     "Object",
     "ObjectReskin Tank Jeep\nEnd\n",
     {{Of("BuildCost"), "3"}},
     "",
     "the file has no block of the name Tank"},
    {"a cut value",
     "Locomotor",
     "Locomotor Tank\n  Surfaces = GROUND RUBBLE\nEnd\n",
     {{Handling(0), "AIR"}},
     "",
     "only a part of the value in its line is shown"},
    {"a cut text",
     "Object",
     "Object Tank\n  BuildCost = \"a b\"\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "only a part of the value in its line is shown"},
    {"a text cut at its semicolon",
     "Object",
     "Object Tank\n  BuildCost = \"a;b\"\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "only a part of the value in its line is shown"},
    {"a value in a comment",
     "Object",
     "Object Tank\n  BuildCost = // 5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "what it shows stands in a comment"},
    {"no value",
     "Object",
     "Object Tank\n  BuildCost = \nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its line has no value behind \"=\", with a space between them"},
    {"no spaces",
     "Object",
     "Object Tank\n  BuildCost=5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its line has no value behind \"=\", with a space between them"},
    {"a tab",
     "Object",
     "Object Tank\n  BuildCost =\t5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its line has no value behind \"=\", with a space between them"},
    {"a key that is not seen",
     "Object",
     "Object Tank\n\tBuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its key stands in a line that is not written as it is shown"},
    {"a key behind the shown end",
     "Object",
     "Object Tank\n  Body = ActiveBody ModuleTag_01\nEnd\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its block goes on behind the \"End\" in the first column"},
    {"a value of the next block",
     "Object",
     "Object Tank\n  End\nObject Jeep\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1"}},
     "",
     "its line belongs to what follows the block"},
    {"a block without End",
     "Object",
     "Object Tank\n  BuildTime = 5",
     {{Of("VisionRange"), "1"}},
     "",
     "its block has no \"End\" of its own"},
    {"no armour set", "Object", "Object Tank\nEnd\n", {{Of("Armor"), "A"}}, "", "the object has no ArmorSet"},
    {"no health",
     "Object",
     "Object Tank\n  Side = A\nEnd\n",
     {{Of("MaxHealth"), "1"}},
     "",
     "the object has no line beside which it belongs"},
    {"one line twice",
     "Object",
     "Object Tank\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1"}, {Of("BuildCost"), "2"}},
     "",
     "another field shows the same line"},
    {"nothing typed",
     "Object",
     "Object Tank\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), " "}},
     "",
     "it is empty; a line is deleted in the manual editor"},
    {"two words",
     "Object",
     "Object Tank\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1 2"}},
     "",
     "what is typed is not one word of a line"},
    {"a comment",
     "Object",
     "Object Tank\n  BuildCost = 5\nEnd\n",
     {{Of("BuildCost"), "1;2"}},
     "",
     "what is typed is not one word of a line"},
};

constexpr const char* kSets =
    "Object Tank\n  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY A\n    Weapon = SECONDARY B ; b\n "
    " End\n"
    "  WeaponSet\n    Conditions = ELITE\n  End\n"
    "  Locomotor = SET_NORMAL W\n  Locomotor = SET_FAST X\nEnd\n";

Field Weapon(std::size_t set, const char* conditions, std::size_t number) {
  return WeaponField{set, conditions, number};
}

const Case kLists[] = {
    {"a weapon",
     "Object",
     kSets,
     {{Weapon(0, "None", 1), "C"}},
     "Object Tank\n  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY A\n    Weapon = SECONDARY C ; "
     "b\n  End\n"
     "  WeaponSet\n    Conditions = ELITE\n  End\n"
     "  Locomotor = SET_NORMAL W\n  Locomotor = SET_FAST X\nEnd\n"},
    {"a new weapon",
     "Object",
     kSets,
     {{Weapon(0, "None", 2), "C"}},
     "Object Tank\n  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY A\n    Weapon = SECONDARY B ; b\n"
     "    Weapon = TERTIARY C\n  End\n"
     "  WeaponSet\n    Conditions = ELITE\n  End\n"
     "  Locomotor = SET_NORMAL W\n  Locomotor = SET_FAST X\nEnd\n"},
    {"new weapons",
     "Object",
     kSets,
     {{Weapon(1, "ELITE", 0), "C"}, {Weapon(1, "ELITE", 1), "D"}},
     "Object Tank\n  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY A\n    Weapon = SECONDARY B ; "
     "b\n  End\n"
     "  WeaponSet\n    Conditions = ELITE\n    Weapon = PRIMARY C\n    Weapon = SECONDARY D\n  End\n"
     "  Locomotor = SET_NORMAL W\n  Locomotor = SET_FAST X\nEnd\n"},
    {"a locomotor",
     "Object",
     kSets,
     {{LocomotorField{1, 2}, "Y"}},
     "Object Tank\n  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY A\n    Weapon = SECONDARY B ; "
     "b\n  End\n"
     "  WeaponSet\n    Conditions = ELITE\n  End\n"
     "  Locomotor = SET_NORMAL W\n  Locomotor = SET_FAST Y\nEnd\n"},
    {"a weapon too far",
     "Object",
     kSets,
     {{Weapon(1, "ELITE", 1), "D"}},
     "",
     "the weapon before it is not set"},
    {"other sets",
     "Object",
     kSets,
     {{Weapon(1, "None", 0), "D"}},
     "",
     "the weapon sets are not those that are shown"},
    {"other locomotors",
     "Object",
     kSets,
     {{LocomotorField{1, 3}, "Y"}},
     "",
     "the lines that name locomotors are not those that are shown"},
    {"a switch",
     "Object",
     "Object Tank\n  WeaponSet\n    WeaponLock = Yes\n  End\nEnd\n",
     {{Weapon(0, "", 0), "A"}},
     "",
     "it shows the key 'WeaponLock'"},
    {"no weapon's name",
     "Object",
     kSets,
     {{Weapon(0, "None", 1), "Yes"}},
     "",
     "what is typed is no name of a weapon"},
    {"sets that share lines",
     "Object",
     "Object Tank\n  WeaponSet\n    Weapon = PRIMARY A\n    End\n  WeaponSet\n    Weapon = PRIMARY B\n  "
     "End\nEnd\n",
     {{Weapon(0, "", 0), "C"}},
     "",
     "its weapon set shares lines with the next"},
    {"a slot taken",
     "Object",
     "Object Tank\n  WeaponSet\n    Weapon = SECONDARY A\n  End\nEnd\n",
     {{Weapon(0, "", 1), "C"}},
     "",
     "its weapon set has a SECONDARY weapon already"},
    {"slots in their order",
     "CommandSet",
     "CommandSet Tank\n  1 = A\n  3  = C ; c\n 14 = D\nEnd\n",
     {{SlotField{3}, "X"}, {SlotField{2}, "Y"}, {SlotField{5}, "Z"}, {SlotField{12}, "W"}},
     "CommandSet Tank\n  1 = A\n  2 = Y\n  3  = X ; c\n  5 = Z\n  12 = W\n 14 = D\nEnd\n"},
    {"the first slot",
     "CommandSet",
     "CommandSet Tank\n  3 = C\nEnd\n",
     {{SlotField{1}, "X"}},
     "CommandSet Tank\n  1 = X\n  3 = C\nEnd\n"},
    {"a slot that shows another",
     "CommandSet",
     "CommandSet Tank\n  10 = C\nEnd\n",
     {{SlotField{1}, "X"}},
     "",
     "it shows the key '10'"},
    {"percentages",
     "Armor",
     "Armor Tank\n  Armor = FLAME  50% ; hot\n  Armor = FLAME 10%\n  Armor=LASER 5%\nEnd\n",
     {{ArmourField{"FLAME", 1}, "20%"}, {ArmourField{"FLAME", 0}, "75%"}, {ArmourField{"LASER", 0}, "1%"}},
     "Armor Tank\n  Armor = FLAME  75% ; hot\n  Armor = FLAME 20%\n  Armor=LASER 1%\nEnd\n"},
    {"no percentage",
     "Armor",
     "Armor Tank\n  Armor = FLAME 50\nEnd\n",
     {{ArmourField{"FLAME", 0}, "20%"}},
     "",
     "its line has no percentage that is shown whole"},
    {"a commented line",
     "Armor",
     "Armor Tank\n  ;Armor = FLAME 50%\nEnd\n",
     {{ArmourField{"FLAME", 0}, "20%"}},
     "",
     "it shows the key ';Armor'"},
    {"two comments",
     "Armor",
     "Armor Tank\n  Armor = FLAME 50% ; a ; b\nEnd\n",
     {{ArmourField{"FLAME", 0}, "20%"}},
     "",
     "its line has no percentage that is shown whole"},
    {"no percentage typed",
     "Armor",
     "Armor Tank\n  Armor = FLAME 50%\nEnd\n",
     {{ArmourField{"FLAME", 0}, "2%0"}},
     "",
     "what is typed is not one percentage"},
    {"a line that is gone",
     "Armor",
     "Armor Tank\n  Armor = FLAME 50%\nEnd\n",
     {{ArmourField{"FLAME", 1}, "20%"}},
     "",
     "the armour has no such line any more"},
};

INSTANTIATE_TEST_SUITE_P(Keys, FieldEdits, testing::ValuesIn(kKeys));
INSTANTIATE_TEST_SUITE_P(RefusedKeys, FieldEdits, testing::ValuesIn(kRefusedKeys));
INSTANTIATE_TEST_SUITE_P(Lists, FieldEdits, testing::ValuesIn(kLists));

TEST(FieldEditsOfOtherLineEnds, KeepThem) {
  const std::vector<FieldEdit> edits = {{Of("BuildCost"), "1"}, {Of("BuildTime"), "2"}};
  const BlockName name{"Object", "Tank"};
  const std::string onlyCr = "; \n\rObject Tank\r  BuildCost = 5\r  Side = A\rEnd\r";
  const FieldPlan plan = PlanFieldEdits(onlyCr, name, edits);
  EXPECT_EQ(WithLineEdits(onlyCr, plan.edits),
            "; \n\rObject Tank\r  BuildCost = 1\r  BuildTime = 2\r  Side = A\rEnd\r");
  EXPECT_EQ(DifferenceFromSlowEdits(onlyCr, name, edits), "");
  EXPECT_EQ(PlanFieldEdits("Object Tank\n  BuildCost = 5\nEnd\n", name, edits).refusals[0].reason,
            "its block has line ends of another kind");
}

TEST(ValuePlaces, AreThoseOfTheShownValueOrOfTheHeader) {
  const std::string text =
      CrLf("; a\nObject Tank\n  BuildCost =  900 ; b\n  BuildTime = 1\n  BuildTime = 2\nEnd\n");
  const BlockName name{"Object", "Tank"};
  const auto place = [&](const char* key) {
    const Field field = Of(key);
    const ValuePlace found = FindValue(text, name, &field);
    return std::vector<int>{found.line, found.column, found.length, found.header};
  };
  EXPECT_EQ(place("BuildCost"), (std::vector{3, 16, 3, 2}));
  EXPECT_EQ(place("BuildTime"), (std::vector{4, 15, 1, 2}));
  EXPECT_EQ(place("VisionRange"), (std::vector{2, 8, 4, 2}));
  EXPECT_EQ(FindValue(text, name, nullptr).line, 2);
  EXPECT_EQ(FindValue(text, {"Object", "Jeep"}, nullptr).line, 0);
}

}  // namespace
}  // namespace korvane
