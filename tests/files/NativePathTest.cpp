// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstdlib>

#include "files/NativePath.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

#ifndef _WIN32

void SetVariable(const char* name, const std::string& value) {
  setenv(name, value.c_str(), 1);
}

TEST(NativePath, FindsWhatTheGameSpellsInItsOwnWay) {
  const GameFolder disk;
  for (const char* file : {"Data/INI/Weapon.ini", "Data/b.ini", "Data/B.INI", "Data/abc.INI", "Data/aBc.ini",
                           "Data/ABC.ini", "Data/Abc.ini", "Data/abC.ini", "prefix/dosdevices/c:/Game/a.txt",
                           "home/.wine/dosdevices/d:/a.txt"}) {
    disk.write(file, "");
  }
  SetVariable("HOME", disk.native("home").string());
  struct Case {
    const char* name;
    std::string path;
    std::string_view native;
    const char* prefix = "prefix";
  };
  const Case cases[] = {
      {"exact", disk.path() + "\\Data\\INI\\Weapon.ini", "Data/INI/Weapon.ini"},
      {"other letter case", disk.path() + "\\DATA\\ini\\weapon.INI", "Data/INI/Weapon.ini"},
      {"slashes", disk.path() + "/data/ini/weapon.ini", "Data/INI/Weapon.ini"},
      {"exact before byte order", disk.path() + "\\Data\\b.ini", "Data/b.ini"},
      {"first in byte order", disk.path() + "\\Data\\b.INI", "Data/B.INI"},
      {"first of many", disk.path() + "\\Data\\aBC.INI", "Data/ABC.ini"},
      {"nothing matches", disk.path() + "\\data\\New\\None.ini", "Data/New/None.ini"},
      {"drive", "C:\\game\\A.TXT", "prefix/dosdevices/c:/Game/a.txt"},
      {"small drive letter", "c:\\Game\\a.txt", "prefix/dosdevices/c:/Game/a.txt"},
      {"no such drive", "D:\\a.txt", "prefix/dosdevices/d:/a.txt"},
      {"drive of the home folder", "D:\\A.txt", "home/.wine/dosdevices/d:/a.txt", ""},
  };
  for (const Case& test : cases) {
    SetVariable("WINEPREFIX", *test.prefix == '\0' ? "" : disk.native(test.prefix).string());
    EXPECT_EQ(NativePath(ProgramPath(test.path)), disk.native(test.native)) << test.name;
  }
}

#endif

TEST(NativePath, WhatIsNoPathDoesNotExist) {
  const GameFolder disk;
  disk.write("a.txt", "");
  for (const std::string& wrong :
       {std::string(5000, 'x'), std::string("\xff\\?*"), disk.path() + "\\a.txt\\b"}) {
    EXPECT_FALSE(FileExists(ProgramPath(wrong))) << wrong;
    EXPECT_FALSE(FolderExists(ProgramPath(wrong))) << wrong;
  }
  EXPECT_TRUE(FileExists(ProgramPath(disk.path() + "\\a.txt")));
  EXPECT_FALSE(FolderExists(ProgramPath(disk.path() + "\\a.txt")));
  EXPECT_FALSE(FileExists(ProgramPath(disk.path())));
  EXPECT_TRUE(FolderExists(ProgramPath(disk.path())));
}

}  // namespace
}  // namespace korvane
