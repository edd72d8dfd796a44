// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "writing/Proposals.h"
#include "writing/WritingPlace.h"

namespace korvane {
namespace {

constexpr std::string_view kPath = "Data\\INI\\Object.ini";

std::shared_ptr<const CatalogueFile> File(const std::string& path, std::string_view text) {
  return CatalogueFile::read({.path = path}, text);
}

const Catalogue& Names() {
  static const Catalogue catalogue(
      {},
      {File("Data\\INI\\Armor.ini", "Armor TankArmor\nEnd\n"),
       File(std::string(kPath), "Object SavedHere\nEnd\n"),
       File("Data\\INI\\Science.ini", "Science SCIENCE_Rank1\nEnd\n"),
       File("Data\\INI\\Weapon.ini",
            "Weapon TankGun\nEnd\nWeapon BigTankGun\nEnd\nWeapon Batank\nEnd\nWeapon TankGun\nEnd\n"
            "FXList FX_Tank\nEnd\n")},
      {});
  return catalogue;
}

const std::vector<ItemName>& Own() {
  static const std::vector<ItemName> own = {{GameStructure::get().kind("Object"), "TypedHere"},
                                            {GameStructure::get().kind("Weapon"), "TypedTankGun"}};
  return own;
}

// The first proposals with blanks between, and how many bytes they replace.
std::string First(std::string_view text, std::size_t most) {
  const Proposals proposals = Propose(text, {&Names(), kPath, Own()}, most);
  if (proposals.list.empty()) return {};
  std::string shown = std::to_string(proposals.typed) + ':';
  for (const Proposal& each : proposals.list) shown += ' ' + each.text;
  return shown;
}

struct Case {
  const char* what;
  const char* text;
  const char* expected;
  std::size_t most = 3;
};

class ProposalsTest : public testing::TestWithParam<Case> {};

TEST_P(ProposalsTest, FitThePlace) {
  const auto& [what, text, expected, most] = GetParam();
  EXPECT_EQ(First(text, most), expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, ProposalsTest,
    testing::Values(
        Case{"kinds outside", "Weap", "4: Weapon"},
        Case{"kinds behind a block", "Weapon A\nEnd\nArm", "3: Armor", 1},
        Case{"keys", "Weapon A\n  PrimaryDam", "10: PrimaryDamage PrimaryDamageRadius"},
        Case{"keys by their words' beginnings", "Weapon A\r\n  dbs", "3: DelayBetweenShots"},
        Case{"keys of a nested block", "Object A\n  WeaponSet\n    Wea",
             "3: Weapon WeaponLockSharedAcrossSets ShareWeaponReloadTime"},
        Case{"keys around a nested block", "Object A\n  WeaponSet\n  End\n  BuildC",
             "6: BuildCompletion BuildCost"},
        Case{"keys of a module", "Object A\n Behavior = SlowDeathBehavior M\n  ProbabilityM",
             "12: ProbabilityModifier"},
        Case{"nested blocks", "Object A\n  WeaponS", "7: WeaponSet"},
        Case{"the next of a series", "ChallengeGenerals\n GeneralPersona1\n End\n General",
             "7: GeneralPersona2", 1},
        Case{"End", "Weapon A\n  en", "2: End", 1}, Case{"no End outside", "Weapon A\nEnd\nend", ""},
        Case{"End first", "Weapon A\n", "0: End AcceptableAimDelta AllowAttackGarrisonedBldgs"},
        Case{"the slot before a name",
             "Object A\n  WeaponSet\n    Weapon = ", "0: PRIMARY SECONDARY TERTIARY", 9},
        Case{"one of the slots", "Object A\n  WeaponSet\n    Weapon = sec", "3: SECONDARY", 9},
        Case{"a slot of certain modules",
             "Object A\n  Behavior = SlowDeathBehavior M\n    FX = ", "0: INITIAL FINAL MIDPOINT", 9},
        Case{"no slot in other modules", "Object A\n  Behavior = InstantDeathBehavior M\n    FX = tank",
             "4: FX_Tank"},
        Case{"the second of two slots", "DamageFX A\n  VeterancyMajorFX = HEROIC def", "3: DEFAULT"},
        Case{"no slot again", "Object A\n  WeaponSet\n    PreferredAgainst = PRIMARY ",
             "0: INFANTRY AIRCRAFT VEHICLE"},
        Case{"names", "Object A\n  WeaponSet\n    Weapon = PRIMARY tank",
             "4: TankGun BigTankGun TypedTankGun"},
        Case{"a name given twice", "Object A\n  WeaponSet\n    Weapon = PRIMARY TankG",
             "5: TankGun BigTankGun TypedTankGun", 9},
        Case{"names anywhere", "Object A\n  WeaponSet\n    Weapon = PRIMARY atank", "5: Batank"},
        Case{"names of this text, not of its file",
             "ObjectCreationList A\n  CreateObject\n    ObjectNames = here", "4: TypedHere"},
        Case{"names of a header", "ObjectReskin B Typed", "5: TypedHere"},
        Case{"a new name", "Object Typed", ""},
        Case{"names behind a label",
             "Object A\n Behavior = TransitionDamageFX M\n  DamagedFXList1 = Loc:X:0 Y:0 Z:0 FXList:fx_",
             "3: FX_Tank"},
        Case{"names behind a label and a blank",
             "Object A\n Behavior = TransitionDamageFX M\n  DamagedFXList1 = Loc:X:0 Y:0 Z:0 FXList: t",
             "1: FX_Tank", 1},
        Case{"words that stand for no name", "Object A\n  WeaponSet\n    Weapon = PRIMARY Non", "3: None", 1},
        Case{"closed lists, the frequent words first",
             "Object A\n  KindOf = ", "0: IMMOBILE SELECTABLE PRELOAD"},
        Case{"no word again", "Object A\n  KindOf = IMMOBILE ", "0: SELECTABLE PRELOAD CAN_ATTACK"},
        Case{"yes and no", "Weapon A\n  LeechRangeWeapon = ", "0: Yes No"},
        Case{"one of yes and no", "Weapon A\n  LeechRangeWeapon = Yes ", ""},
        Case{"modules", "Object A\n  Draw = W3DTankT", "8: W3DTankTruckDraw"},
        Case{"one module", "Object A\n  Draw = W3DTankDraw W3D", ""},
        Case{"numbers", "Weapon A\n  PrimaryDamage = 1", ""},
        Case{"an unknown key", "Weapon A\n  Nothing = T", ""}, Case{"comments", "Weapon A\n ; Prim", ""},
        Case{"comments behind slashes", "Weapon A\n // Prim", ""},
        Case{"slashes in a word", "Weapon A\n a//Prim", ""},
        Case{"quotes", "Object A\n  KindOf = \"IMMO", ""},
        Case{"a header ends what is open", "Object A\n  WeaponSet\nWeapon B\n  PrimaryDamageR",
             "14: PrimaryDamageRadius"},
        Case{"nothing", "", "0: AIData", 1}),
    [](const auto& each) {
      std::string name = each.param.what;
      std::erase_if(name, [](char c) { return c == ' ' || c == ',' || c == '\''; });
      return name;
    });

TEST(Proposals, AreTheBestOfMany) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) text += "Weapon Gun" + std::to_string(i) + "\nEnd\n";
  const Catalogue many({}, {File("Data\\INI\\Weapon.ini", text + "Weapon AGun\nEnd\nWeapon Gun\nEnd\n")}, {});
  const Proposals found = Propose("Object A\n WeaponSet\n  Weapon = PRIMARY Gun", {&many, {}, {}});
  ASSERT_EQ(found.list.size(), kMostProposals);
  EXPECT_EQ(found.list[0].text, "Gun");
  EXPECT_EQ(found.list[1].text, "Gun0");
  EXPECT_EQ(found.list[2].text, "Gun1");
  EXPECT_EQ(found.list[3].text, "Gun10");
  EXPECT_TRUE(std::ranges::none_of(found.list, [](const Proposal& each) { return each.text == "AGun"; }));
}

TEST(WritingPlace, DependsOnNothingBeforeTheLastHeader) {
  const std::string before = "Object A\n  WeaponSet\n    Conditions = None\n";
  for (const std::string_view last :
       {"Weapon B ; x\n  Cl", "  Weapon = PRIMARY X\n  C", "Weapon B\n  ClipSize = 1\nEnd\nWea",
        "AIData\n  T", "Armor = X\n", "Armor\n", "Object B"}) {
    const std::string text = before + std::string(last);
    const WritingPlace place = PlaceBehind(text);
    const bool header = last.starts_with("Weapon B");
    EXPECT_EQ(FromLastHeader(text), header ? last : std::string_view(text)) << last;
    EXPECT_EQ(place.block == kOutsideBlocks, last.ends_with("Wea")) << last;
  }
}

}  // namespace
}  // namespace korvane
