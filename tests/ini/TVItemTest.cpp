// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "files/FilePieces.h"
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

// Long files are read in pieces; their borders fall into lines, between lines and between CR and LF.
TEST(TVItem, LinesAreWholeWhereverAPieceOfTheFileEnds) {
  constexpr std::size_t kPiece = FilePieces::kPiece;
  const GameFolder game;
  for (const std::size_t first : {kPiece - 2, kPiece - 1, kPiece, kPiece + 1, 3 * kPiece}) {
    const std::vector<std::string> lines = {std::string(first, 'a'), "b", "", std::string(kPiece - 5, 'c'),
                                            "d"};
    std::string text;
    for (const std::string& line : lines) text += line + (line == "b" ? "\r" : "\r\n");
    game.write("Data/INI/Weapon.ini", text + "last");
    std::vector<std::string> read;
    TVItem reader;
    reader.NewLine = [&read](std::string_view line) { read.emplace_back(line); };
    reader.OpenFile(game.path() + "\\Data\\INI\\Weapon.ini");
    ASSERT_EQ(read.size(), lines.size() + 1) << first;
    EXPECT_TRUE(std::equal(lines.begin(), lines.end(), read.begin())) << first;
    EXPECT_EQ(read.back(), "last");
  }
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

#ifdef __linux__
TEST(TVItem, HoldsNoFileAfterTheRead) {
  const GameFolder game;
  game.ini("Locomotor.ini", "a\n");
  TVItem reader;
  reader.GamePath = game.path();
  int open = 0;
  reader.ProcDone = [&] {
    std::error_code gone;
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd"))
      open += std::filesystem::read_symlink(file, gone).filename() == "Locomotor.ini";
  };
  reader.NewLine = [&](std::string_view line) { EXPECT_EQ(line, "a"); };
  reader.GetLocomotorData();
  EXPECT_EQ(open, 0);
}
#endif

TEST(TVItem, BeginsWithIsCaseSensitiveAndTrueForNothing) {
  EXPECT_TRUE(TVItem::CheckText("Weapon", ""));
  EXPECT_TRUE(TVItem::CheckText("Weapon X", "Weapon "));
  EXPECT_FALSE(TVItem::CheckText("weapon X", "Weapon "));
  EXPECT_FALSE(TVItem::CheckText("Wea", "Weapon"));
  EXPECT_TRUE(TVItem::FindText("A Weapon X", "wEAPON"));
  EXPECT_FALSE(TVItem::FindText("Weap on", "Weapon"));
}

}  // namespace
}  // namespace korvane
