// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "check/CheckDesk.h"
#include "check/EditDistance.h"
#include "check/NumberForm.h"

namespace korvane {
namespace {

using Files = std::map<std::string, std::string>;

// What a rule finds in a folder of its own, and a part of the first finding's text.
struct Case {
  const char* about;
  RuleId rule;
  Files files;
  std::vector<std::string> found;
  std::string text{};
  std::string suggestion{};
  OtherPlace other{};
};

const std::string kEffects = "FXList FX_Bang\nEnd\nFXList FX_BangBig\nEnd\n";

const Case kCases[] = {
    {"a name that nothing defines",
     RuleId::missingName,
     {{"FXList.ini", kEffects},
      {"Weapon.ini", "Weapon A\n  FireFX = FX_Bnag ; loud\n  FireFX = None\nEnd\n"}},
     {"Weapon.ini:2:12:7 error missing-name"},
     "FireFX: no FXList 'FX_Bnag' is defined; is 'FX_Bang' meant?",
     "FX_Bang"},
    {"a name that another kind has",
     RuleId::missingName,
     {{"FXList.ini", kEffects}, {"Weapon.ini", "Weapon Boom\n  FireFX = Boom\nEnd\n"}},
     {"Weapon.ini:2:12:4 error missing-name"},
     "; only a Weapon has that name"},
    {"no item of the kind at all",
     RuleId::missingName,
     {{"Weapon.ini", "Weapon A\n  FireFX = FX_Bang\nEnd\n"}},
     {}},
    {"names in other letter case, behind labels and in headers",
     RuleId::missingName,
     {{"Object/X.ini",
       "Object A\n  Behavior = TransitionDamageFX M_1\n    DamagedParticleSystem1 = Bone:None RandomBone:No "
       "PSys:Smoke\n"
       "  End\nEnd\nObjectReskin B a\nEnd\nObjectReskin C Missing\nEnd\n"},
      {"ParticleSystem.ini", "ParticleSystem smoke\nEnd\n"}},
     {"Object/X.ini:8:16:7 error missing-name"}},
    {"a lost End, found by the next header",
     RuleId::openBlock,
     {{"Weapon.ini", "Weapon A\n  PrimaryDamage = 1\n\nWeapon B\nEnd\n"}},
     {"Weapon.ini:4:1:8 error open-block"},
     "Weapon A is not closed before Weapon B in line 4",
     "",
     {"Data/INI/Weapon.ini", 1}},
    {"a lost End of an inner block, found by what cannot stand in its parent",
     RuleId::openBlock,
     {{"Object/X.ini", "Object A\n  ArmorSet\n    Armor = None\n  Behavior = DestroyDie M_1\n  End\nEnd\n"}},
     {"Object/X.ini:4:3:25 error open-block"},
     "ArmorSet is not closed before"},
    {"a lost End of the last inner block",
     RuleId::openBlock,
     {{"Object/X.ini",
       "Object A\n  Draw = W3DModelDraw M_1\n    ConditionState = NONE\n      Model = X\n  End\nEnd\nObject "
       "B\nEnd\n"}},
     {"Object/X.ini:7:1:8 error open-block"},
     "Object A is not closed before Object B in line 7; most likely ConditionState = NONE in line 3 lacks "
     "its End",
     "",
     {"Data/INI/Object/X.ini", 3}},
    {"an open block at the end of the file",
     RuleId::openBlock,
     {{"Weapon.ini", "Weapon A\n  PrimaryDamage = 1\n"}},
     {"Weapon.ini:2:1:0 error open-block"},
     "before the end of the file"},
    {"an End too many",
     RuleId::strayEnd,
     {{"Weapon.ini", "Weapon A\nEnd\nEnd\nWeapon B\nEnd\n"}},
     {"Weapon.ini:3:1:3 error stray-end"}},
    {"text between blocks; lines that may stand there",
     RuleId::looseText,
     {{"Weapon.ini", "; note\nWeapon A\nEnd\n FIXED\n\nWeapon B\nEnd\nReallyLowMHz = 600\n"}},
     {"Weapon.ini:4:2:5 error loose-text"},
     "'FIXED' stands outside any block"},
    {"an End too many inside a block",
     RuleId::looseText,
     {{"Object/X.ini",
       "Object A\n  Draw = W3DModelDraw M_1\n    ConditionState = NONE\n    End\n    Model = X\n  End\n  "
       "Side = X\nEnd\nEnd\n"}},
     {"Object/X.ini:5:5:5 error loose-text"},
     "'Model' has no place in Draw = W3DModelDraw M_1; most likely the End in line 4 is one too many",
     "",
     {"Data/INI/Object/X.ini", 4}},
    {"a misspelt kind",
     RuleId::looseText,
     {{"Weapon.ini", "Wepon A\n  PrimaryDamage = 1\nEnd\n"}},
     {"Weapon.ini:1:1:7 error loose-text"},
     "is 'Weapon' meant?",
     "Weapon"},
    {"a misspelt key",
     RuleId::keyTypo,
     {{"Weapon.ini", "Weapon A\n  PrimryDamage = 1\n  Colour = 2\nEnd\n"}},
     {"Weapon.ini:2:3:12 error key-typo"},
     "unknown key 'PrimryDamage' in Weapon; is 'PrimaryDamage' meant?",
     "PrimaryDamage"},
    {"a key in other letter case",
     RuleId::keyTypo,
     {{"Weapon.ini", "Weapon A\n  primarydamage = 1\nEnd\n"}},
     {"Weapon.ini:2:3:13 error key-typo"}},
    {"a misspelt inner block, and modules that are not listed",
     RuleId::keyTypo,
     {{"Object/X.ini", "Object A\n  ArmorSte\n  Behavior = OwnModule M_1\n    Triggerd = X\n  End\nEnd\n"}},
     {"Object/X.ini:2:3:8 error key-typo"},
     "is 'ArmorSet' meant?"},
    {"a key that is not known",
     RuleId::keyUnknown,
     {{"Weapon.ini", "Weapon A\n  Colour = 2\n  PrimaryDamage = 1\nEnd\n"}},
     {"Weapon.ini:2:3:6 note key-unknown"}},
    {"a misspelt word, signs and letter case left aside",
     RuleId::wordTypo,
     {{"Weapon.ini",
       "Weapon A\n  DamageType = EXPLOSON\n  RadiusDamageAffects = enemies -NEUTRALS +ALLEIS\nEnd\n"}},
     {"Weapon.ini:2:16:8 error word-typo", "Weapon.ini:3:44:6 error word-typo"},
     "unknown word 'EXPLOSON'; is 'EXPLOSION' meant?",
     "EXPLOSION"},
    {"a misspelt module",
     RuleId::wordTypo,
     {{"Object/X.ini", "Object A\n  Behavior = DestoryDie M_1\n  End\nEnd\n"}},
     {"Object/X.ini:2:14:10 error word-typo"}},
    {"a word that is not known",
     RuleId::wordUnknown,
     {{"Weapon.ini", "Weapon A\n  DamageType = TICKLING\n  WeaponBonus = VETERAN DAMAGE 110%\nEnd\n"}},
     {"Weapon.ini:2:16:8 note word-unknown"}},
    {"numbers that cannot be read to their end",
     RuleId::numberForm,
     {{"Object/X.ini",
       "Object A\n  GeometryHeight = 12,5\n  BuildCost = 900\n  GeometryMajorRadius = 8.0f\nEnd\n"},
      {"Weapon.ini", "Weapon A\n  ScatterTarget = X:1.0 Y:2..0\n  ScatterTarget = X: 3 Y: -4\nEnd\n"}},
     {"Object/X.ini:2:20:4 warning number-form", "Weapon.ini:2:25:6 warning number-form"},
     "GeometryHeight: '12,5' is not a well-formed number"},
    {"a key with two values",
     RuleId::keyTwice,
     {{"CommandSet.ini", "CommandSet S\n  1 = A\n  2 = B\n  1 = C\nEnd\n"}},
     {"CommandSet.ini:4:3:1 warning key-twice"},
     "slot 1 is given twice in CommandSet S: 'A' in line 2, 'C' here; only one of them can count",
     "",
     {"Data/INI/CommandSet.ini", 2}},
    {"keys that may be given again, and other blocks of the same kind",
     RuleId::keyTwice,
     {{"Object/X.ini",
       "Object A\n  KindOf = VEHICLE\n  KindOf = SELECTABLE\n  WeaponSet\n    Weapon = PRIMARY A\n    Weapon "
       "= SECONDARY B\n"
       "  End\n  ArmorSet\n    Armor = A\n  End\n  ArmorSet\n    Armor = B\n  End\n  Side = X\n  Side = "
       "X\nEnd\n"},
      {"Weapon.ini",
       "Weapon A\n  RadiusDamageAffects = ENEMIES ALLIES\n  RadiusDamageAffects = ALLIES ENEMIES\nEnd\n"}},
     {}},
    {"a key with the same value twice",
     RuleId::sameTwice,
     {{"Object/X.ini", "Object A\n  Side = X\n  Side = X ; again\nEnd\n"}},
     {"Object/X.ini:3:3:4 note same-twice"}},
    {"a name that is defined twice",
     RuleId::duplicate,
     {{"A.ini", "Weapon Gun\nEnd\nTerrain T\nEnd\nMultiplayerColor C\nEnd\n"},
      {"B.ini", "Weapon GUN\n  PrimaryDamage = 1\nEnd\nTerrain T\nEnd\nMultiplayerColor C\nEnd\n"}},
     {"B.ini:1:8:3 error duplicate", "B.ini:4:9:1 warning duplicate"},
     "Weapon GUN is already defined in A.ini, line 1, with another text: only one of the two can count",
     "",
     {"Data/INI/A.ini", 1}},
    {"kinds of sounds that share their names, in one file",
     RuleId::duplicate,
     {{"Voice.ini", "AudioEvent Hello\nEnd\nDialogEvent Hello\nEnd\n"}},
     {"Voice.ini:3:13:5 error duplicate"},
     "is already defined in line 1, with another text"},
    {"a tag that two modules have",
     RuleId::tagTwice,
     {{"Object/X.ini",
       "Object A\n  Behavior = DestroyDie M_1\n  End\n  Draw = W3DModelDraw m_1\n  End\nEnd\nObject B\n  "
       "Behavior = "
       "DestroyDie M_1\n  End\nEnd\n"}},
     {"Object/X.ini:4:23:3 error tag-twice"}},
    {"buttons that lack a key",
     RuleId::buttonLacks,
     {{"CommandButton.ini",
       "CommandButton A\n  Command = UNIT_BUILD\nEnd\nCommandButton B\n  Command = UNIT_BUILD\n  Object = "
       "X\nEnd\n"
       "CommandButton C\n  Command = FIRE_WEAPON\nEnd\nCommandButton D\n  Command = "
       "purchase_science\nEnd\n"}},
     {"CommandButton.ini:2:13:10 error button-lacks", "CommandButton.ini:12:13:16 error button-lacks"},
     "A has Command = UNIT_BUILD but no Object"},
    {"a side that is almost one of a player",
     RuleId::sideTypo,
     {{"PlayerTemplate.ini", "PlayerTemplate P\n  Side = America\nEnd\n"},
      {"Object/X.ini",
       "Object A\n  Side = Amercia\nEnd\nObject B\n  Side = Naval\nEnd\nObject C\n  Side = america\nEnd\n"}},
     {"Object/X.ini:2:10:7 warning side-typo"},
     "is 'America' meant?",
     "America"},
    {"a block whose longer namesake stands first",
     RuleId::shadowed,
     {{"Weapon.ini", "Weapon GunBig\nEnd\nWeapon gun\nEnd\nWeapon GunOther\nEnd\n"},
      {"Other.ini", "Weapon GunBig2\nEnd\nWeapon GunBig\nEnd\n"},
      {"Object/X.ini", "ObjectReskin TankX T\nEnd\nObject TankY\nEnd\nObject Tank\nEnd\n"}},
     {"Object/X.ini:5:8:4 warning shadowed", "Weapon.ini:3:8:3 warning shadowed"},
     "Korvane shows TankY of line 3 in place of Tank"},
    {"an inner End in the first column",
     RuleId::cutShort,
     {{"Object/X.ini",
       "Object A\n  ArmorSet\nEnd\n  BuildCost = 1\nEnd\nObject B\n  ArmorSet\nEnd\n ; nothing behind "
       "it\nEnd\n"}},
     {"Object/X.ini:3:1:3 warning cut-short"}},
    {"an item that nothing names",
     RuleId::unused,
     {{"Weapon.ini", "Weapon Used\nEnd\nWeapon Unused ; Weapon = Unused\nEnd\nObject Placed\nEnd\n"},
      {"Object/X.ini", "Object A\n  WeaponSet\n    Weapon = PRIMARY used\n  End\nEnd\n"}},
     {"Weapon.ini:3:8:6 note unused"}},
    {"a name in other letter case",
     RuleId::letterCase,
     {{"FXList.ini", kEffects}, {"Weapon.ini", "Weapon A\n  FireFX = fx_bang\n  FireFX = FX_BangBig\nEnd\n"}},
     {"Weapon.ini:2:12:7 note case"},
     "'fx_bang' is defined as 'FX_Bang'",
     "FX_Bang"},
    {"upgrades that are sold and do nothing",
     RuleId::noEffect,
     {{"Upgrade.ini", "Upgrade U_Vain\nEnd\nUpgrade U_Good\nEnd\nUpgrade U_Free\nEnd\nUpgrade U_Gate\nEnd\n"},
      {"CommandButton.ini",
       "CommandButton B1\n  Command = PLAYER_UPGRADE\n  Upgrade = U_Vain\nEnd\nCommandButton B2\n  Command = "
       "PLAYER_UPGRADE\n  Upgrade = U_Good\nEnd\nCommandButton B3\n  Command = OBJECT_UPGRADE\n  Upgrade = "
       "U_Free\nEnd\nCommandButton B4\n  Command = PLAYER_UPGRADE\n  Upgrade = U_Gate\nEnd\n"
       "CommandButton B5\n  Command = FIRE_WEAPON\n  Upgrade = U_Gate\nEnd\n"},
      {"CommandSet.ini", "CommandSet S\n  1 = B1\n  2 = B2\n  3 = B4\nEnd\n"},
      {"Object/X.ini",
       "Object A\n  UpgradeCameo1 = U_Vain\n  Behavior = WeaponSetUpgrade M_1\n    TriggeredBy = U_Good\n  "
       "End\nEnd\n"}},
     {"Upgrade.ini:1:9:6 note no-effect"}},
};

TEST(Rules, FindWhatTheyAreAbout) {
  std::map<RuleId, int> tried;
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.about);
    const GameFolder folder;
    for (const auto& [name, text] : each.files) folder.ini(name, text);
    RuleSet rules = RuleSet::none();
    rules.add(each.rule);
    const Findings findings = CheckFolder(folder, rules);
    EXPECT_EQ(Brief(findings), each.found);
    ++tried[each.rule];
    if (findings.empty()) continue;
    EXPECT_NE(findings[0].text.find(each.text), std::string::npos) << findings[0].text;
    if (!each.suggestion.empty()) {
      EXPECT_EQ(findings[0].suggestion, each.suggestion);
    }
    if (each.other.line > 0) {
      EXPECT_EQ(findings[0].other, each.other) << findings[0].other.file << ':' << findings[0].other.line;
    }
  }
  for (const Rule& rule : AllRules())
    EXPECT_TRUE(tried.contains(rule.id) || rule.id == RuleId::unixLines) << rule.code;
}

TEST(Rules, KnowLineFeedsThatStandAlone) {
  const GameFolder folder;
  folder.write("Data/INI/Weapon.ini", "Weapon A\r\nEnd\r\nWeapon B\nEnd\n");
  folder.write("Data/INI/Science.ini", "Science A\nEnd\n");  // not shown by any window
  folder.write("Data/INI/Object/X.ini", "Object A\nEnd\r\n");
  EXPECT_EQ(Brief(CheckFolder(folder)), (std::vector<std::string>{"Object/X.ini:1:1:0 warning unix-lines",
                                                                  "Weapon.ini:3:1:0 warning unix-lines"}));
}

TEST(Rules, HavePagesInTheHelp) {
  for (const Rule& rule : AllRules()) {
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(KORVANE_HELP_PAGES) / rule.page)) << rule.page;
    EXPECT_EQ(FindRule(rule.code), &rule);
    EXPECT_TRUE(rule.meaning.ends_with('.')) << rule.code;
    EXPECT_EQ(RuleSet::usual().has(rule.id), rule.level != Level::note) << rule.code;
  }
}

// All distances of all beginnings.
std::size_t SlowEdits(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> edits(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      std::size_t& least = edits[i][j] = std::max(i, j);
      if (i == 0 || j == 0) continue;
      least = std::min(
          {edits[i - 1][j] + 1, edits[i][j - 1] + 1, edits[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        least = std::min(least, edits[i - 2][j - 2] + 1);
    }
  }
  return edits.back().back();
}

TEST(Rules, CountEditsUpToALimit) {
  std::vector<std::string> words{""};
  for (std::size_t i = 0; words[i].size() < 4; ++i)
    for (const char letter : {'a', 'b', 'c'}) words.push_back(words[i] + letter);
  for (const std::string& a : words)
    for (const std::string& b : words)
      for (const std::size_t limit : {0U, 1U, 2U, 3U})
        ASSERT_EQ(EditsBetween(a, b, limit), std::min<std::size_t>(SlowEdits(a, b), limit + 1))
            << a << ' ' << b << ' ' << limit;
}

TEST(Rules, CountEdits) {
  struct Pair {
    const char* a;
    const char* b;
    std::size_t edits;
  };
  for (const auto& [a, b, edits] : {Pair{"", "", 0},
                                    {"Speed", "Speed", 0},
                                    {"Speed", "Sped", 1},
                                    {"Speed", "Speeds", 1},
                                    {"Speed", "Spead", 1},
                                    {"Speed", "pSeed", 1},
                                    {"Speed", "pSede", 2},
                                    {"Speed", "SPeeD", 2},
                                    {"Speed", "Damage", 3},
                                    {"abc", "cba", 2},
                                    {"", "abc", 3}}) {
    EXPECT_EQ(EditsBetween(a, b, 2), edits) << a << ' ' << b;
    EXPECT_EQ(EditsBetween(b, a, 2), edits) << b << ' ' << a;
  }
  const std::string endless(100000, 'x');
  EXPECT_EQ(EditsBetween(endless, endless + "y", 2), 3U) << "too long to be looked at";
  EXPECT_TRUE(SameSeries("RotateX", "RotateZ"));
  EXPECT_TRUE(SameSeries("Tire01", "Tire2"));
  EXPECT_FALSE(SameSeries("DAMAGE", "DAMAGF"));
  EXPECT_FALSE(SameSeries("Speed", "Sped"));
}

TEST(Rules, KnowMisshapenNumbers) {
  for (const char* good : {"1", "-1", "+.5", "5.", "1.5e-3", "50%", "2.0f", "X:10", "X:", "None", "-", "."})
    EXPECT_FALSE(IsMisshapenNumber(good)) << good;
  for (const char* bad :
       {"1,5", "Y:-0,52", "Y:15:", "40v.0", "18.5.0", "5\\.00", "75.0.", "1e", "--1", "1%%", "0x10"})
    EXPECT_TRUE(IsMisshapenNumber(bad)) << bad;
}

}  // namespace
}  // namespace korvane
