// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "ini/DataFiles.h"
#include "stock/BigArchive.h"
#include "stock/StockFiles.h"
#include "support/GameFolder.h"
#include "support/ToolRun.h"

namespace korvane {
namespace {

StockRecords Catalogue() {
  StockRecords files;
  for (const DataFile& file : kDataFiles) {
    const std::string path = std::string(file.folder.substr(1)) + std::string(file.name);
    files.emplace_back(path, "; the text of " + path + "\r\n");
  }
  return files;
}

class StockTool : public testing::Test {
 protected:
  // Runs the tool in the folder; gives its exit code and what it wrote.
  std::pair<int, std::string> run(const std::string& arguments) {
    return RunTool(folder.native(""), KORVANE_STOCK, arguments);
  }

  GameFolder folder;
};

TEST_F(StockTool, MakesADatabaseFromTheGamesArchives) {
  StockRecords files = Catalogue();
  files[0].second = "loose";
  folder.write("game/data/ini/object/factionunit.ini", "loose");
  StockRecords packed = Catalogue();
  packed.emplace_back("Data\\INI\\Extra.ini", "");
  folder.write("game/INI.big", ArchiveBytes(packed));
  EXPECT_EQ(run("pack --output new/folder game").first, 0);
  DBCtl database;
  database.LoadDatabase(folder.path() + "\\new\\folder", "Data");
  EXPECT_EQ(ReadAll(database), files);

  EXPECT_EQ(run("pack --name All --all game/INI.big").first, 0);
  EXPECT_NE(run("list All.DBF").second.find("Extra.ini"), std::string::npos);
  EXPECT_NE(run("verify all.dbf").second.find("14 files"), std::string::npos);
  EXPECT_EQ(run("extract All.DBF out").first, 0);
  folder.write("out/Data/INI/Weapon.ini", "mine");
  EXPECT_EQ(run("extract game/INI.big out").first, 0);
  EXPECT_EQ(folder.read("out/Data/INI/Weapon.ini"), "mine") << "files that are there stay";
  EXPECT_EQ(folder.read("out/Data/INI/Armor.ini"), "; the text of Data\\INI\\Armor.ini\r\n");
  EXPECT_EQ(run("extract --overwrite All.DBF out data/ini/weapon.ini").first, 0);
  EXPECT_NE(folder.read("out/Data/INI/Weapon.ini"), "mine");
}

TEST_F(StockTool, TakesNamesInAnyScript) {
  const std::string name = "spi\xc3\xa4l \xe6\x97\xa5";
  folder.write(name + "/Data/INI/Weapon.ini", "text");
  EXPECT_EQ(run("pack --partial -o \"" + name + "/new\" \"" + name + '"').first, 0);
  EXPECT_EQ(run("extract \"" + name + "/new/Data.DBF\" \"" + name + "/out\"").first, 0);
  EXPECT_EQ(folder.read(name + "/out/Data/INI/Weapon.ini"), "text");
  EXPECT_NE(run("list \"" + name + "/none\"").second.find(name), std::string::npos);
}

TEST_F(StockTool, TellsWhatItCannotDo) {
  folder.write("game/Data/INI/Weapon.ini", "text");
  folder.write("hostile.big", ArchiveBytes({{"Data\\INI\\..\\..\\..\\escaped.ini", "x"},
                                            {"\x1b[2J.ini", "x"},
                                            {"Data\\g\xf6od.ini", "y"}}));
  struct Case {
    const char* arguments;
    int exitCode;
    const char* says;
  };
  const Case cases[] = {
      {"", 2, "subcommand"},
      {"pack", 2, "SOURCE"},
      {"list --colour x", 2, "--colour"},
      {"--help", 0, "extract"},
      {"pack game", 1, "Armor.ini: not in any source"},
      {"pack missing.big", 1, "cannot be opened"},
      {"pack --partial -n Some game", 0, "1 file, 4 bytes packed"},
      {"pack -f ../x game", 1, "no path of a file"},
      {"pack -o game/Data/INI/Weapon.ini --partial game", 1, "Weapon.ini"},
      {"list game/Data/INI/Weapon.ini", 1, "neither"},
      {"pack --all hostile.big", 1, "no path of a file"},
      {"verify hostile.big", 1, "would leave"},
      {"list hostile.big", 0, "?[2J.ini"},
      {"extract hostile.big out", 1, "would leave"},
      {"extract Some.DBF out Data/INI/Rank.ini", 1, "not found"},
  };
  for (const Case& test : cases) {
    const auto [exitCode, text] = run(test.arguments);
    EXPECT_EQ(exitCode, test.exitCode) << test.arguments << ": " << text;
    EXPECT_NE(text.find(test.says), std::string::npos) << test.arguments << ": " << text;
  }
  EXPECT_FALSE(std::filesystem::exists(folder.native("escaped.ini")));
  EXPECT_EQ(folder.read("out/Data/göod.ini"), "y");
  EXPECT_FALSE(std::filesystem::exists(folder.native("Data.DBF"))) << "a pack that fails leaves nothing";
}

TEST(BigArchive, DamageIsTold) {
  const StockRecords files = {{"Data\\a.ini", "first"}, {"Data\\b.ini", "second"}};
  struct Case {
    const char* name;
    void (*spoil)(std::string&);
    const char* says;
  };
  const Case cases[] = {
      {"empty", [](std::string& bytes) { bytes.clear(); }, "no BIGF archive"},
      {"other mark", [](std::string& bytes) { bytes[3] = '4'; }, "no BIGF archive"},
      {"mark only", [](std::string& bytes) { bytes.resize(10); }, "header is cut off"},
      {"cut off", [](std::string& bytes) { bytes.pop_back(); }, "it is cut off"},
      {"4 GB claimed", [](std::string& bytes) { Put(bytes, 4, "\xff\xff\xff\xff"); }, "it is cut off"},
      {"count too high", [](std::string& bytes) { Put(bytes, 8, "\xff\xff\xff\xff"); }, "list of files"},
      {"header too long", [](std::string& bytes) { Put(bytes, 12, "\xff\xff\xff\xff"); },
       "longer than the file"},
      {"file past the end", [](std::string& bytes) { Put(bytes, 16, BigBytes(66)); }, "a.ini lies outside"},
      {"numbers that overflow",
       [](std::string& bytes) { Put(bytes, 16, BigBytes(0xFFFFFFF0) + BigBytes(0x20)); }, "lies outside"},
      {"path without end", [](std::string& bytes) { bytes.replace(34, 1, std::string(600, 'x')); },
       "list of files"},
      {"path of no letters", [](std::string& bytes) { bytes[24] = '\0'; }, "list of files"},
  };
  const GameFolder folder;
  for (const Case& test : cases) {
    std::string bytes = ArchiveBytes(files);
    test.spoil(bytes);
    folder.write("x.big", bytes);
    try {
      BigArchive archive(folder.path() + "\\x.big");
      FAIL() << test.name;
    } catch (const ArchiveError& error) {
      EXPECT_NE(std::string(error.what()).find(test.says), std::string::npos)
          << test.name << ": " << error.what();
    }
  }
}

}  // namespace
}  // namespace korvane
