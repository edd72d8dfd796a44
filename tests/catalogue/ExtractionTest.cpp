// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "catalogue/Extraction.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

constexpr std::string_view kText = "Science A\nEnd ; no line end, \x80 and \xff";

class ExtractionTest : public testing::Test {
 protected:
  std::string extract(std::string_view path) { return ExtractText(game.path(), path, kText); }

  GameFolder game;
};

TEST_F(ExtractionTest, TheFileHasTheBytesOfTheTextAndItsFoldersAreMade) {
  EXPECT_EQ(extract("data\\ini\\Object\\Deep\\Packed.INI"), "");
  EXPECT_EQ(game.read("Data/INI/Object/Deep/Packed.INI"), kText);
}

TEST_F(ExtractionTest, WhatIsThereAlreadyStaysInAnyLetterCase) {
  game.write("Data/INI/Packed.ini", "mine");
  std::filesystem::create_directories(game.native("Data/INI/Folder.ini"));
  EXPECT_EQ(extract("DATA\\INI\\PACKED.INI"), "there is a file of this name already");
  EXPECT_EQ(extract("Data\\INI\\Folder.ini"), "there is a file of this name already");
  EXPECT_EQ(game.read("Data/INI/Packed.ini"), "mine");
}

TEST_F(ExtractionTest, NothingIsWrittenOutsideOfTheFoldersOfTheData) {
  constexpr std::array kPaths = {"Packed.ini",
                                 "Data\\Packed.ini",
                                 "Data\\INI\\..\\Packed.ini",
                                 "Data\\INI\\..\\..\\Packed.ini",
                                 "Data/INI/../Packed.ini",
                                 "Data\\INI\\C:\\Packed.ini",
                                 "\\Data\\INI\\Packed.ini",
                                 "Data\\INI\\nul.ini",
                                 "Data\\INI\\Packed.txt",
                                 "Data\\INI\\Link\\Packed.ini",
                                 "Data\\INI\\Lost\\Packed.ini",
                                 "Data\\INIother\\Packed.ini"};
  std::filesystem::create_directories(game.native("Data/Elsewhere"));
  const GameFolder other;
#ifdef _WIN32  // the standard library makes no links there; files hold their place
  game.write("Data/INI/Link", "");
  game.write("Data/INI/Lost", "");
#else
  std::filesystem::create_directory_symlink(other.native("Data"), game.native("Data/INI/Link"));
  std::filesystem::create_directory_symlink(other.native("Nowhere"), game.native("Data/INI/Lost"));
#endif
  for (const char* path : kPaths) EXPECT_NE(extract(path), "") << path;
  for (const GameFolder* folder : {static_cast<const GameFolder*>(&game), &other}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder->native("")))
      EXPECT_FALSE(entry.is_regular_file() && entry.file_size() > 0) << entry.path();
  }
}

}  // namespace
}  // namespace korvane
