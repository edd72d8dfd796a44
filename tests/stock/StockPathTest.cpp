// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "stock/RestorePath.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

TEST(RestorePath, OrdinaryPathsGoBelowTheGameFolder) {
  const GameFolder game;
  for (const char* path : {"Data\\INI\\Weapon.ini", "data\\ini\\new\\file", "a", "a..b\\.hidden",
                           "Console\\com10.ini", "nulls.txt", "auxiliary\\prn_"}) {
    EXPECT_EQ(SafeTarget(game.path(), path), game.path() + "\\" + path);
  }
  EXPECT_EQ(SafeTarget(game.path(), "Data/INI/Weapon.ini"), game.path() + "\\Data\\INI\\Weapon.ini");
}

TEST(RestorePath, HostilePathsGoNowhere) {
  const GameFolder game;
  const char* const paths[] = {
      "",
      "\\",
      "\\etc\\passwd",
      "/etc/passwd",
      "\\\\server\\share\\x",
      "\\\\?\\C:\\x",
      "C:\\x",
      "C:x",
      "x\\C:\\y",
      "..",
      "..\\x",
      "Data\\..\\..\\x",
      "Data\\..",
      "Data/../../x",
      "Data\\.\\x",
      ".",
      "Data\\\\x",
      "Data\\",
      "Data\\..\\INI\\x",
      "Data\\.. \\x",
      "Data\\...\\x",
      "Data\\ .\\x",
      "x.",
      "x ",
      "x:stream",
      "Weapon.ini::$DATA",
      "NUL",
      "nul.ini",
      "Data\\con",
      "Data\\Aux.tar.gz",
      "COM1",
      "com\xc2\xb9.txt",
      "LPT\xb2",
      "lpt9.ini",
      "PRN .txt",
      "CONIN$",
      "x\ny",
      "x\x01",
      "a*b",
      "a?b",
      "a\"b",
      "a<b",
      "a>b",
      "a|b",
  };
  for (const char* path : paths) EXPECT_FALSE(SafeTarget(game.path(), path)) << path;
  EXPECT_FALSE(SafeTarget(game.path(), std::string_view("x\0.ini", 6)));
  EXPECT_FALSE(SafeTarget(game.path() + "\\missing", "x"));
}

#ifdef _WIN32

TEST(RestorePath, AGameFolderMayBeNamedAsALongPath) {
  const GameFolder game;
  const std::string longPath = "\\\\?\\" + game.path();
  EXPECT_EQ(SafeTarget(longPath, "Data\\INI\\x.ini"), longPath + "\\Data\\INI\\x.ini");
  EXPECT_FALSE(SafeTarget(longPath, "..\\x.ini"));
}

#else  // the standard library makes no links there

TEST(RestorePath, LinksMayNotLeadOut) {
  namespace fs = std::filesystem;
  const GameFolder game;
  const GameFolder outside;
  fs::create_directory_symlink(outside.native(""), game.native("out"));
  fs::create_directory_symlink(game.native("Data"), game.native("in"));
  fs::create_symlink(outside.native("missing.ini"), game.native("dangling.ini"));
  fs::create_symlink("circle", game.native("circle"));
  EXPECT_FALSE(SafeTarget(game.path(), "out\\x.ini"));
  EXPECT_FALSE(SafeTarget(game.path(), "OUT\\new\\x.ini"));
  EXPECT_FALSE(SafeTarget(game.path(), "dangling.ini"));
  EXPECT_FALSE(SafeTarget(game.path(), "circle\\x"));
  EXPECT_TRUE(SafeTarget(game.path(), "in\\x.ini"));
}

#endif

}  // namespace
}  // namespace korvane
