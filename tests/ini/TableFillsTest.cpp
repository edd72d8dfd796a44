// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "ini/SParse.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

// Writes a row as "caption|value|kind|number of choices", without what the row does not have.
class WrittenTable : public TableSink {
 public:
  void clearRows() override { rows.clear(); }
  void prepare() override { ++prepared; }
  void addCell(std::string_view text, int column, EditKind kind) override {
    if (column == 0) {
      rows.emplace_back(text);
    } else {
      rows.back().append("|").append(text).append("|").append(std::to_string(static_cast<int>(kind)));
    }
  }
  void addChoices(ChoiceList choices) override {
    rows.back().append("|").append(std::to_string(choices->size())).append(" from ").append(choices->front());
    offered = std::move(choices);
  }

  std::vector<std::string> rows;
  ChoiceList offered;
  int prepared = 0;
};

class TableFills : public testing::Test {
 protected:
  using Rows = std::vector<std::string>;

  GameFolder game;
  SParse parser{[this] { return game.path(); }, {}};
  WrittenTable table;
  const std::string line = std::string(40, '-') + "|" + std::string(20, '-') + "|0";
};

TEST_F(TableFills, AWeaponShowsItsParametersInTheirOrder) {
  game.ini("Weapon.ini",
           "Weapon Rocket\n  PrimaryDamage = 40.0 ; full\n  PrimaryDamageRadius = 5.0\n  AttackRange=9\n"
           "  DamageType = ARMOR_PIERCING ; note\n  FireFX = FX_A\n  FireFX = FX_B\nEnd\n"
           "Weapon Rocket\n  WeaponSpeed = 1\nEnd\n");
  parser.GetWeaponData("Rocket", table);
  EXPECT_EQ(
      table.rows,
      (Rows{"Weapon Damage|40.0|1", "Weapon Damage Radius|5.0|1", line, "Weapon Speed", "Weapon Range",
            "Weapon Recoil", line, "Accuracy When Attacking Infantry", line, "Minimum Target Pitch",
            "Maximum Target Pitch", line, "Damage Type|ARMOR_PIERCING|2|15 from ARMOR_PIERCING",
            "Death Type|8 from BURNED", line, "Projectile Object", "Fire FX|FX_A\r\nFX_B|1", "Fire Sound"}));
}

TEST_F(TableFills, ACommandButtonShowsItsParametersInTheirOrder) {
  game.ini("CommandButton.ini",
           "CommandButton B\n  Command = DOZER_CONSTRUCT\n  Options = FIRST SECOND\n"
           "  TextLabel = LABELS:Build ; label\nEnd\n");
  parser.GetCmdBtnData("B", table);
  EXPECT_EQ(
      table.rows,
      (Rows{"Command Type|DOZER_CONSTRUCT|2|28 from ATTACK_MOVE", line, "Button Border Type|5 from ACTION",
            "Button Image ", line, "Text Label|LABELS:Build|1", "Description Label", line, "Object",
            "Options|SECOND|1", line, "SpecialPower", line, "Radius Cursor Type", "Invalid Cursor Name"}));
}

TEST_F(TableFills, ASlotTakesTheFirstLineThatBeginsWithItsDigits) {
  parser.ButtonNames = std::make_shared<const std::vector<std::string>>(std::vector<std::string>{"A", "B"});
  game.ini("CommandSet.ini",
           "CommandSet First\n  1 = ButtonA\n  10 = ButtonB\n  13 = Never\nEnd\n"
           "CommandSet Second\n  10 = ButtonB\n  1 = ButtonA\nEnd\n");
  const std::string offer = "|2 from A";
  parser.GetCmdSetData("First", table);
  ASSERT_EQ(table.rows.size(), 12u);
  EXPECT_EQ(table.rows[0], "1|ButtonA|2" + offer);
  EXPECT_EQ(table.rows[4], "5" + offer);
  EXPECT_EQ(table.rows[9], "10|ButtonB|2" + offer);
  EXPECT_EQ(table.offered, parser.ButtonNames) << "offered without a copy";
  EXPECT_EQ(table.prepared, 1);
  parser.GetCmdSetData("Second", table);
  EXPECT_EQ(table.rows[0], "1|ButtonB|2" + offer);
}

TEST_F(TableFills, AnArmourLineIsTakenApart) {
  const std::pair<const char*, const char*> cases[] = {
      {"  Armor = FLAME 50% ; note", "FLAME|50%|1"},
      {"Armor=FLAME 50%", "FLAME|50%|1"},
      {"  Armor = FLAME 50", "FLAME|%|1"},
      {"  ;Armor = FLAME 50%", "FLAME|%|1"},
      {"  Armor = FLAME 50% ; a ; b", "FLAME|%|1"},
      {"  Armor =   FLAME   50%  ", "FLAME|50%|1"},
      {"  Armor = FLAME = 50%", "FLAME|50%|1"},
      {"  Armor FLAME 50%", "|50%|1"},
      {"  =", "|%|1"},
      {";", "|%|1"},
  };
  for (const auto& [text, row] : cases) {
    parser.SParseArmourText(std::string("Armor A\r\n") + text + "\r\n  \r\nEnd\r\n", table);
    EXPECT_EQ(table.rows, Rows{row}) << text;
  }
}

TEST_F(TableFills, ABlockThatIsNotThereLeavesNoRowOfTheOneBefore) {
  game.ini("Armor.ini", "Armor A\n  Armor = FLAME 50%\nEnd\n");
  parser.GetArmourData("A", table);
  EXPECT_EQ(table.rows.size(), 1u);
  parser.GetArmourData("Missing", table);
  EXPECT_TRUE(table.rows.empty());
  game.ini("Weapon.ini", "Weapon Rocket\n  PrimaryDamage = 40.0\nEnd\n");
  for (const char* name : {"Missing", ""}) EXPECT_EQ(parser.GetWeaponData(name, table), "\r\n") << name;
  EXPECT_EQ(table.rows.front(), "Weapon Damage");
}

}  // namespace
}  // namespace korvane
