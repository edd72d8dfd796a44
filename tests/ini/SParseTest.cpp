// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <map>

#include "ini/SParse.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

class SParseTest : public testing::Test {
 protected:
  GameFolder game;
  int yields = 0;
  SParse parser{[this] { return game.path(); }, [this] { ++yields; }};

  std::string block(const std::string& name, const char* kind = "Object") {
    parser.ObjectName = name;
    return parser.GetObjectText(kind, "Object\\FactionUnit.ini");
  }
};

TEST_F(SParseTest, FindsBlocksByThePrefixOfTheirHeader) {
  game.objects("FactionUnit.ini",
               "; Object Tank\n  Object Tank\nObject\tTank\n"
               "Object TankHunter\n  Speed = 1\n  End\nEnd ; hunter\n"
               "OBJECT tank\n  Speed = 2\nend\n"
               "Object Tank\n  Speed = 3\nEndurance\n  lost\n"
               "Weapon Gun\nEND\n"
               "Object Open\n  Speed = 4");
  const std::string hunter = "Object TankHunter\r\n  Speed = 1\r\n  End\r\nEnd ; hunter\r\n";
  const std::map<std::string, std::string> expected = {
      {"TankHunter", hunter}, {"Tank", hunter},  // a prefix of the first header
      {"TANKH", hunter},      {"", hunter},     {"tank\r", ""},
      {"Nothing", ""},        {"Gun", ""},      {"Open", "Object Open\r\n  Speed = 4\r\n"},
  };
  for (const auto& [name, text] : expected) {
    EXPECT_EQ(block(name), text) << name;
    EXPECT_EQ(parser.Collecting, text.empty() || name == "Open") << name;
  }
  EXPECT_EQ(block("Gun", "Weapon"), "Weapon Gun\r\nEND\r\n");
}

TEST_F(SParseTest, YieldsForEveryLineOfTheWholeFile) {
  game.objects("FactionUnit.ini", "Object A\nEnd\n\n\n\n");
  block("A");
  EXPECT_GE(yields, 5);
}

TEST_F(SParseTest, ReadsTheUnitFileByDefaultAndNothingFromNowhere) {
  game.objects("FactionUnit.ini", "Object A\nEnd\n");
  parser.ObjectName = "A";
  EXPECT_EQ(parser.GetObjectText("Object"), "Object A\r\nEnd\r\n");
  EXPECT_EQ(parser.GetObjectText("Object", "Missing.ini"), "");
  EXPECT_EQ(parser.GetParameterValue("Object", "Speed", "Missing.ini"), "");
}

TEST_F(SParseTest, KeysArePrefixesAndSingleLookUpsAreNot) {
  const std::string text =
      "Object A\r\n  Speed = 30 ; x\r\n;Speed = 9\r\n  SpeedDamaged = 20\r\n\tSpeed = 8\r\nspeed = 7\r\n"
      "  Speed = 31\r\nTurn=5\r\nEnd\r\n";
  EXPECT_EQ(SParse::GetParameterValueNoINI("Object", "Speed", text), "30\r\n20\r\n31\r\n");
  EXPECT_EQ(SParse::GetLocomotorValue("Speed", text), "30\r\n31");
  EXPECT_EQ(parser.GetWeaponValue("SpeedDamaged", text), "20");
  EXPECT_EQ(SParse::GetCommandButtonValue("Turn", text), std::nullopt);
  EXPECT_EQ(SParse::GetCommandSetValue(1, "  10 = B\r\n  1 = A\r\n  2 = C\r\n"), "B\r\nA");
}

TEST_F(SParseTest, RemovesBlankLines) {
  EXPECT_EQ(SParse::RemVBCrLf("a\r\n   \r\n\r\nb"), "a\r\nb");
  EXPECT_EQ(SParse::RemVBCrLf("\r\n \r\n"), "");
  EXPECT_EQ(SParse::RemVBCrLf("\t\r\n"), "\t");
}

class Fields : public LocomotorFields {
 public:
  void reset(int index) override { texts[index] = "_"; }
  void insert(int index, std::string_view value) override { texts[index] = value; }
  std::map<int, std::string> texts;
};

TEST_F(SParseTest, JoinsObjectsToTheirLocomotors) {
  game.objects("FactionUnit.ini",
               "Object Jeep\n  Locomotor = SET_NORMAL Alpha Wheels\n  LocomotorX = SET_FAST Tracks ; "
               "y\nEnd\nObject Hut\nEnd\n");
  game.ini("Locomotor.ini",
           "Locomotor Wheels\n  Surfaces = GROUND RUBBLE\n  Speed = 40\nEnd\nLocomotor Tracks\n  Braking = "
           "5\nEnd\n");
  const SelectedObject jeep{"Jeep", "Object\\FactionUnit.ini"};
  const SelectedObject hut{"Hut", "Object\\FactionUnit.ini"};
  EXPECT_EQ(parser.GetLocomotorNames(jeep), "Wheels\r\nTracks");
  EXPECT_EQ(parser.ObjectName, "Tracks");
  EXPECT_EQ(parser.GetLocomotorNames(hut), "");
  EXPECT_EQ(parser.GetLocomotors(jeep),
            "Locomotor Wheels\r\n  Surfaces = GROUND RUBBLE\r\n  Speed = 40\r\nEnd\r\n\r\n"
            "Locomotor Tracks\r\n  Braking = 5\r\nEnd\r\n\r\n");
  Fields fields;
  parser.GetLocomotorData(jeep, 1, 0, 3, fields);
  EXPECT_EQ(fields.texts, (std::map<int, std::string>{{0, "RUBBLE"}, {1, "40"}, {2, "_"}, {3, "_"}}));
  parser.GetLocomotorData(jeep, 2, 0, 8, fields);
  EXPECT_EQ(fields.texts[7], "5");
  EXPECT_EQ(fields.texts[1], "_");
  for (const int tab : {0, 3}) {  // no such tab
    parser.GetLocomotorData(jeep, tab, 0, 8, fields);
    EXPECT_EQ(fields.texts[7], "_") << tab;
  }
}

TEST_F(SParseTest, CutsWeaponSetsAtTheirTwoSpaceMarkers) {
  parser.ExtractWeapons(
      "Object A\r\n  WeaponSet\r\n    Deep\r\n    End\r\n  End\r\n  Body\r\n  End\r\n\tWeaponSet\r\n    "
      "WeaponSet\r\n"
      "  WeaponSetX ; 2\r\n    Weapon = PRIMARY B\r\nEnd\r\n");
  EXPECT_EQ(parser.WeaponSetTexts(),
            (std::vector<std::string>{"  WeaponSet\r\n    Deep\r\n    End\r\n  End\r\n",
                                      "  WeaponSetX ; 2\r\n    Weapon = PRIMARY B\r\nEnd\r\n\r\n", ""}));
  parser.ExtractWeapons("Object B\r\n  End\r\n");
  EXPECT_EQ(parser.WeaponSetTexts(), std::vector<std::string>{""});
}

TEST_F(SParseTest, IsTakenByOneCommandAtATime) {
  {
    const ParserTurn first(parser);
    EXPECT_TRUE(first);
    EXPECT_FALSE(ParserTurn(parser));
    EXPECT_FALSE(ParserTurn(parser));  // the refused one has not set it free
  }
  EXPECT_TRUE(ParserTurn(parser));
}

}  // namespace
}  // namespace korvane
