// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "compare/Comparison.h"
#include "compare/SlowComparison.h"
#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

// "changed Weapon Gun Weapon.ini:3 Clip=1>2".
std::vector<std::string> Brief(const Comparison& comparison) {
  constexpr std::size_t kFolder = 9;  // Data\INI\.
  std::vector<std::string> lines;
  for (const ItemChange& item : comparison.items) {
    std::string line(kItemStates[static_cast<std::size_t>(item.state)]);
    line += ' ' + std::string(KindText(item.kind)) + ' ' + item.name + ' ' +
            comparison.fileOf(item).path.substr(kFolder) + ':' + std::to_string(comparison.lineOf(item));
    for (const KeyChange& key : item.keys)
      line += ' ' + key.key + '=' + key.former.value_or("-") + '>' + key.present.value_or("-");
    lines.push_back(line);
  }
  return lines;
}

class ComparisonOf : public testing::Test {
 protected:
  std::vector<std::string> compare(const ComparisonWish& wish = {}) const {
    return Brief(*CompareSources({{original.path()}}, {{mod.path()}}, wish));
  }

  GameFolder original;
  GameFolder mod;
};

using Lines = std::vector<std::string>;

TEST_F(ComparisonOf, TwoFoldersIsByItemsWhereverTheyStand) {
  original.ini("Weapon.ini", "Weapon Gun\n Clip = 1\nEnd\nWeapon Bow\nEnd\nWeapon Axe\nEnd\n");
  mod.ini("Weapon.ini", "; mine\nWeapon Axe\nEnd\n\nWeapon gun\n Clip = 2\nEnd\n");
  mod.ini("More/New.ini", "Armor Hard\nEnd\nWeapon Bow\nEnd\nWeapon Rocket\nEnd\n");
  EXPECT_EQ(compare(), (Lines{"added Armor Hard More\\New.ini:1", "changed Weapon gun Weapon.ini:5 Clip=1>2",
                              "added Weapon Rocket More\\New.ini:5"}));
  EXPECT_EQ(compare({.kinds = {GameStructure::get().kind("Armor")}}),
            Lines{"added Armor Hard More\\New.ini:1"});
  mod.ini("More/New.ini", "");
  mod.ini("Weapon.ini", "");
  EXPECT_EQ(compare(), (Lines{"removed Weapon Axe Weapon.ini:6", "removed Weapon Bow Weapon.ini:4",
                              "removed Weapon Gun Weapon.ini:1"}));
}

TEST_F(ComparisonOf, ItemsThatDifferInTheirTextAloneWaitsForTheWish) {
  original.ini("Weapon.ini", "Weapon Gun\n Clip = 1\n Range = 2\nEnd\n");
  mod.ini("Weapon.ini", "Weapon Gun\n Range = 2\n  Clip = 1 ; as before\nEnd\n");
  EXPECT_EQ(compare(), Lines{});
  EXPECT_EQ(compare({.text = true}), Lines{"changed Weapon Gun Weapon.ini:1"});
}

TEST_F(ComparisonOf, NamesThatAreDefinedTwice) {
  original.ini("A.ini", "Weapon Gun\n Clip = 1\nEnd\n");
  original.ini("B.ini", "Weapon Gun\n Clip = 2\nEnd\n");
  mod.ini("A.ini", "Weapon Gun\n Clip = 2\nEnd\n");
  EXPECT_EQ(compare(), Lines{"removed Weapon Gun A.ini:1"});
  mod.ini("B.ini", "Weapon Gun\n Clip = 3\nEnd\n");
  EXPECT_EQ(compare(), Lines{"changed Weapon Gun B.ini:1 Clip=1>3"});
}

TEST_F(ComparisonOf, WhatHasNoName) {
  original.ini("GameData.ini", "GameData\n Gravity = 1\nEnd\n");
  mod.ini("GameData.ini", "GameData\n Gravity = 2\nEnd\nBenchProfile = A 1\n");
  EXPECT_EQ(compare(),
            (Lines{"changed GameData  GameData.ini:1 Gravity=1>2", "added  BenchProfile GameData.ini:4"}));
}

TEST_F(ComparisonOf, ArchivesAndStockDatabases) {
  const StockRecords files = {{"Data\\INI\\Weapon.ini", "Weapon Gun\r\n Clip = 1\r\nEnd\r\n"},
                              {"Data\\INI\\Object\\FactionUnit.ini", "Object Tank\r\n Side = GLA\r\nEnd\r\n"},
                              {"Data\\Scripts\\Weapon.ini", "Weapon Other\r\nEnd\r\n"},
                              {"Data\\INI\\Weapon.txt", "Weapon Text\r\nEnd\r\n"}};
  original.write("INI.big", ArchiveBytes(files));
  StockTable database(original.native("Stock"));
  for (const auto& [path, text] : files) database.add(path, text);
  database.commit();
  original.ini("Weapon.ini", "Weapon Loose\nEnd\n");  // is before the one in the archive
  mod.ini("Weapon.ini", "Weapon Gun\n Clip = 2\nEnd\n");
  const Lines expected = {"removed Object Tank Object\\FactionUnit.ini:1",
                          "changed Weapon Gun Weapon.ini:1 Clip=1>2"};
  const DataSource archives = ArchivesOf(original.path());
  EXPECT_EQ(archives.paths, Lines{original.path() + "\\INI.big"});
  for (const DataSource& source : {archives, DataSource{{original.path() + "\\Stock.DBF"}}}) {
    const Comparison comparison = *CompareSources(source, {{mod.path()}});
    EXPECT_EQ(Brief(comparison), expected) << source.paths.front();
    EXPECT_EQ(comparison.items[0].side, "GLA");
    EXPECT_EQ(ReadSourceText(comparison.fileOf(comparison.items[0])), files[1].second);
  }
  EXPECT_EQ(compare(), (Lines{"removed Object Tank Object\\FactionUnit.ini:1",
                              "added Weapon Gun Weapon.ini:1", "removed Weapon Loose Weapon.ini:1"}));
}

TEST_F(ComparisonOf, DamagedDataSaysSo) {
  original.write("INI.big", "BIGF and no more");
  original.write("Stock.DBF", "no table");
  mod.write("Data/INI/Zero.ini", std::string(3, '\0'));
  for (const std::string& path : {original.path(), original.path() + "\\Stock.DBF"})
    EXPECT_EQ(CompareSources({{path}}, {{mod.path()}})->skipped.size(), 2u) << path;
  EXPECT_NE(WhyNoDataSource(mod.path() + "\\nothing"), "");
  EXPECT_NE(WhyNoDataSource(mod.path() + "\\Data\\INI\\Zero.ini"), "");
  EXPECT_EQ(WhyNoDataSource(original.path() + "\\Stock.DBF"), "");
}

TEST_F(ComparisonOf, IsStopped) {
  std::stop_source stop;
  stop.request_stop();
  EXPECT_FALSE(CompareSources({{original.path()}}, {{mod.path()}}, {}, stop.get_token()));
}

// Makes well-formed texts of few words, so that much is alike.
class Author {
 public:
  explicit Author(unsigned seed) : chance_(seed) {}

  std::string text() {
    std::string made;
    std::vector<int> names = {1, 2, 3, 4, 5, 6};
    std::ranges::shuffle(names, chance_);
    names.resize(3);
    for (const int name : names) made += blanks() + item(name) + blanks();
    return made;
  }

 private:
  bool often() { return chance_() % 3 != 0; }
  std::string pick(std::initializer_list<const char*> words) {
    return *(words.begin() + chance_() % words.size());
  }
  std::string blanks() { return pick({"", "\n", "; note\n", "  // note = 1\n"}); }
  std::string line(const std::string& words) {
    return pick({"", " ", "\t"}) + words + pick({"", " ", " ; note", " // End"}) + "\n" + blanks();
  }
  std::string keys() {
    std::string made;
    for (int i = 0; i < 3; ++i)
      if (often())
        made += line(pick({"Cost", "Flags", "Side"}) + pick({" = ", "=", "  "}) + pick({"1", "2", "A B"}));
    return made;
  }
  std::string block(const std::string& header, const std::string& inside) {
    return often() ? line(header) + inside + line("End") : "";
  }
  std::string item(int name) {
    std::vector<std::string> parts = {
        keys(), block("WeaponSet", keys()), block("Behavior = " + pick({"M", "N"}) + " Tag_1", keys()),
        block("Behavior = M Tag_2", keys()),
        block("Draw = W3DModelDraw Tag_3",
              block("ConditionState = A", keys()) + block("ConditionState = B C", keys()))};
    std::ranges::shuffle(parts, chance_);
    std::string made = "Object Name" + std::to_string(name) + '\n';
    for (const std::string& part : parts) made += part;
    return made + "End\n";
  }

  std::mt19937 chance_;
};

Lines Differences(const Comparison& comparison) {
  Lines lines;
  for (const ItemChange& item : comparison.items) {
    const std::string name = "Object " + item.name;
    if (item.state != ItemState::changed)
      lines.push_back((item.state == ItemState::added ? '+' : '-') + name);
    for (const KeyChange& key : item.keys) {
      if (key.former) lines.push_back(name + " -" + key.key + '=' + *key.former);
      if (key.present) lines.push_back(name + " +" + key.key + '=' + *key.present);
    }
  }
  std::ranges::sort(lines);
  return lines;
}

TEST_F(ComparisonOf, AnyTextsAgreesWithASlowSecondVersion) {
  std::size_t different = 0;
  for (unsigned seed = 0; seed < 300; ++seed) {
    Author author(seed);
    SlowItems former;
    SlowItems present;
    const std::string before = author.text();
    const std::string now = author.text();
    SlowRead(before, former);
    SlowRead(now, present);
    original.write("Data/INI/One.ini", before);
    mod.write("Data/INI/" + std::to_string(seed % 5) + ".ini", now);
    const Lines found = Differences(*CompareSources({{original.path()}}, {{mod.path()}}));
    EXPECT_EQ(found, SlowDifferences(former, present)) << before << "\n---\n" << now;
    different += found.size();
    mod.write("Data/INI/" + std::to_string(seed % 5) + ".ini", "");
  }
  EXPECT_GT(different, 3000u);
}

}  // namespace
}  // namespace korvane
