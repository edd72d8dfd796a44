// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "check/CheckDesk.h"
#include "files/NativePath.h"
#include "stock/StockFiles.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kEffects = "FXList FX_Bang\nEnd\n";
constexpr const char* kGun = "Weapon Gun\n  FireFX = FX_Boom\nEnd\n";

TEST(Checker, FindsNoErrorInTheSample) {
  const Findings findings = *Checker(ReadCatalogue({ProgramText(KORVANE_SAMPLE)})).check();
  EXPECT_EQ(Brief(findings), Texts());
}

TEST(Checker, ReadsFurtherDataForTheirNamesOnly) {
  const GameFolder mod;
  const GameFolder original;
  mod.ini("Weapon.ini", "Weapon Gun\n  FireFX = FX_Bang\n  ProjectileDetonationFX = FX_Boom\nEnd\n");
  original.ini("FXList.ini", kEffects);
  original.ini("Extra.ini", "Weapon Gun\n  FireFX = FX_Lost\nEnd\n");
  const Texts boom = {"Weapon.ini:3:28:7 error missing-name"};
  EXPECT_EQ(Brief(CheckFolder(mod)), Texts()) << "no effect is known at all";
  EXPECT_EQ(Brief(CheckFolder(mod, RuleSet::usual(), {original.path()})), boom);
  original.write(
      "FX.big",
      ArchiveBytes({{"Data\\INI\\More.ini", "FXList FX_Boom\r\nEnd\r\nFXList FX_Bang\r\nEnd\r\n"}}));
  EXPECT_EQ(Brief(CheckFolder(mod, RuleSet::usual(), {original.path() + "\\FX.big"})), Texts());
}

TEST(Checker, ChecksAnArchiveInPlaceOfAFolder) {
  const GameFolder folder;
  folder.write("mod.big", ArchiveBytes({{"Data\\INI\\Weapon.ini", GameFolder::CrLf(kGun)},
                                        {"Data\\INI\\FXList.ini", GameFolder::CrLf(kEffects)}}));
  const Findings findings = *Checker(ReadCatalogue({folder.path() + "\\mod.big"})).check();
  EXPECT_EQ(Brief(findings), Texts{"Weapon.ini:2:12:7 error missing-name"});
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].archive, "mod.big");
  EXPECT_EQ(Brief(CheckFolder(folder)), Texts()) << "the archives of a folder are not checked themselves";
}

TEST(Checker, GivesTheSameFindingsHoweverManyThreadsWork) {
  const GameFolder folder;
  folder.ini("FXList.ini", kEffects);
  for (int i = 0; i < 40; ++i)
    folder.objects(std::to_string(i * 7 % 40) + ".ini", "Object A\n  ArmorSet\nEnd\n" + std::string(kGun));
  const Checker checker(ReadCatalogue({folder.path()}), RuleSet::all());
  const auto once = checker.check();
  ASSERT_TRUE(once);
  EXPECT_GT(once->size(), 80U);
  std::size_t told = 0;
  for (const unsigned jobs : {0U, 2U, 7U, 100U})
    EXPECT_EQ(checker.check({.jobs = jobs, .progress = [&](std::size_t done, std::size_t) { told = done; }}),
              once);
  EXPECT_EQ(told, checker.files().size());
}

TEST(Checker, StopsWhenItIsAsked) {
  const GameFolder folder;
  folder.ini("Weapon.ini", kGun);
  const Checker checker(ReadCatalogue({folder.path()}));
  std::stop_source stop;
  stop.request_stop();
  EXPECT_FALSE(checker.check({.jobs = 2}, stop.get_token()));
  EXPECT_FALSE(checker.checkText("Data/INI/Weapon.ini", std::string(1 << 20, '\n'), stop.get_token()));
}

TEST(Checker, ChecksATextInPlaceOfItsFile) {
  const GameFolder folder;
  folder.ini("FXList.ini", kEffects);
  folder.ini("Weapon.ini", kGun);
  const Checker checker(ReadCatalogue({folder.path()}));
  struct Case {
    const char* path;
    const char* text;
    Texts found;
  };
  const Case cases[] = {
      {"Data\\INI\\Weapon.ini", "", {}},
      {"data/ini/WEAPON.ini",
       "Weapon Gun\r\n  FireFX = FX_Boom\r\n",
       {"Weapon.ini:2:12:7 error missing-name", "Weapon.ini:2:1:0 error open-block"}},
      {"Data/INI/Weapon.ini", "Weapon A\r\nEnd\r\nWeapon a\r\nEnd\r\n", {"Weapon.ini:3:8:1 error duplicate"}},
      {"Data/INI/FXList.ini",
       "FXList FX_New\r\nEnd\r\nWeapon W\r\n  ProjectileDetonationFX = FX_New\r\n  FireFX = "
       "FX_Bang\r\nEnd\r\n",
       {"FXList.ini:5:12:7 error missing-name"}},
      {"Data/INI/FXList.ini", "Weapon W\r\n  FireFX = FX_Bang\r\nEnd\r\n", {}},  // no effect is left
      {"Data/INI/Aaa.ini", "Weapon Gun\r\nEnd\r\n", {}},                         // stands first
      {"Data/INI/New.ini", "Weapon W\r\n  FireFX = FX_Bang\r\nEnd\r\n", {}},
      {"Data/INI/Zzz.ini", "Weapon Gun\r\nEnd\r\n", {"Zzz.ini:1:8:3 error duplicate"}},
  };
  for (const Case& each : cases) {
    const auto found = checker.checkText(each.path, each.text);
    ASSERT_TRUE(found);
    Texts briefs = Brief(*found);
    std::ranges::sort(briefs);
    Texts wanted = each.found;
    std::ranges::sort(wanted);
    EXPECT_EQ(briefs, wanted) << each.path;
  }
}

TEST(Checker, ShowsNothingOfAFileThatATerminalCouldObey) {
  const GameFolder folder;
  folder.ini("FXList.ini", kEffects);
  folder.ini("Weapon.ini",
             "Weapon Gun\n  FireFX = FX_\x1b[2J\x9d\xe4" + std::string(500, 'x') + "\nEnd\n\x07\n");
  for (const Finding& finding : CheckFolder(folder)) {
    for (const char c : finding.text + finding.suggestion) EXPECT_GE(static_cast<unsigned char>(c), 0x20);
    EXPECT_EQ(finding.text.find("\xC2\x9D"), std::string::npos);
    EXPECT_LT(finding.text.size(), 300U);
  }
}

// Hostile texts that take time where something is looked up in a list for every line.
TEST(Checker, KeepsItsSpeedWithTextsOfManyKinds) {
  std::string names;
  std::string tags = "Object A\r\n";
  std::string keys = "Weapon W\r\n";
  std::string comments;
  for (int i = 0; i < 20000; ++i) {
    const std::string number = std::to_string(i);
    names += "Weapon G" + number + "\r\nEnd\r\n";
    tags += "  Draw = W3DModelDraw M" + number + "\r\n  End\r\n";
    keys += "  PrimaryDamage = " + number + "\r\n";
    comments += "Weapon G ; korvane: ignore key-twice\r\nEnd\r\n";
  }
  const GameFolder folder;
  const Checker checker(ReadCatalogue({folder.path()}), RuleSet::all());
  for (const std::string* text : {&names, &tags, &keys, &comments}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(checker.checkText("Data/INI/Weapon.ini", *text));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  }
}

}  // namespace
}  // namespace korvane
