// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "ini/TVItem.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

// Everything a reader raises, in order.
class Log {
 public:
  explicit Log(TVItem& reader) {
    reader.ProcStart = [this] { events.push_back("start"); };
    reader.ProcDone = [this] { events.push_back("done"); };
    reader.NewLine = [this](std::string_view line) { events.push_back("line " + std::string(line)); };
    reader.LoadingItem = [this](std::string_view name, std::optional<int> index) {
      events.push_back("loading " + std::string(name) + " " + (index ? std::to_string(*index) : "-"));
    };
  }
  std::vector<std::string> events;
};

TEST(TVItem, DeliversEventsInOrderAndReadsTheFileAnew) {
  const GameFolder game;
  game.ini("Weapon.ini", "a\nb\n");
  TVItem reader;
  reader.GamePath = game.path();
  Log log(reader);
  reader.GetFUnitData("Weapon.ini");
  game.ini("Weapon.ini", "c");
  reader.OpenFile(game.path() + "\\data\\ini\\WEAPON.INI");
  EXPECT_EQ(log.events, (std::vector<std::string>{"start", "line a", "line b", "done", "line c"}));
}

TEST(TVItem, TellsThePlaceOfAnObjectFileByItsExactName) {
  const GameFolder game;
  game.objects("FactionUnit.ini", "x");
  TVItem reader;
  reader.GamePath = game.path();
  Log log(reader);
  reader.AddTVItem("FactionUnit.ini");
  reader.AddTVItem("factionunit.ini");
  reader.AddTVItem("NatureUnit.ini");
  EXPECT_EQ(log.events,
            (std::vector<std::string>{"loading FactionUnit.ini 1", "line x", "loading factionunit.ini -",
                                      "line x", "loading NatureUnit.ini 8"}));
  EXPECT_TRUE(reader.Ready);
  EXPECT_EQ(reader.FileKey, "NatureUnit.ini");
}

TEST(TVItem, WhatCannotBeReadHasNoLines) {
  const GameFolder game;
  std::filesystem::create_directory(game.native("Data/INI/Weapon.ini"));
  game.ini("Armor.ini", "");
  TVItem reader;
  reader.GamePath = game.path();
  Log log(reader);
  for (const char* name : {"Weapon.ini", "Armor.ini", "Missing.ini", "bad\\..\\?*.ini"})
    reader.GetFUnitData(name);
  EXPECT_EQ(log.events,
            (std::vector<std::string>{"start", "done", "start", "done", "start", "done", "start", "done"}));
}

TEST(TVItem, AHandlerThatFailsLosesItsOwnLineOnly) {
  const GameFolder game;
  game.ini("Weapon.ini", "a\nb\nc\n");
  TVItem reader;
  std::string seen;
  reader.NewLine = [&](std::string_view line) {
    if (line == "b") throw std::runtime_error("b");
    seen += line;
  };
  reader.OpenFile(game.path() + "\\Data\\INI\\Weapon.ini");
  EXPECT_EQ(seen, "ac");
}

TEST(TVItem, BeginsWithIsCaseSensitiveAndTrueForNothing) {
  EXPECT_TRUE(TVItem::CheckText("Weapon", ""));
  EXPECT_TRUE(TVItem::CheckText("Weapon X", "Weapon "));
  EXPECT_FALSE(TVItem::CheckText("weapon X", "Weapon "));
  EXPECT_FALSE(TVItem::CheckText("Wea", "Weapon"));
}

}  // namespace
}  // namespace korvane
