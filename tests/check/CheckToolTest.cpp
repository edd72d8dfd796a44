// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "stock/StockFiles.h"
#include "support/GameFolder.h"
#include "support/ToolRun.h"

namespace korvane {
namespace {

class CheckTool : public testing::Test {
 protected:
  CheckTool() {
    folder.ini("FXList.ini", "FXList FX_Bang\nEnd\n");
    folder.ini("Weapon.ini",
               "Weapon Gun\n\tFireFX = FX_Bnag\n  FireFX = FX_Bnag\nEnd\nWeapon gun, 100%: \xe4\nEnd\nWeapon "
               "gun,\nEnd\n");
  }

  // Runs the tool in the folder; gives its exit code and what it wrote.
  std::pair<int, std::string> run(const std::string& arguments) {
    return RunTool(folder.native(""), KORVANE_CHECK, arguments);
  }

  GameFolder folder;
};

TEST_F(CheckTool, WritesWhatCompilersWrite) {
  const auto [code, text] = run(".");
  EXPECT_EQ(code, 1);
  EXPECT_EQ(text,
            "Data/INI/Weapon.ini:2:11: error: FireFX: no FXList 'FX_Bnag' is defined; is 'FX_Bang' meant? "
            "[missing-name]\n"
            "Data/INI/Weapon.ini:3:12: note: and here\n"
            "Data/INI/Weapon.ini:7:8: error: Weapon gun, is already defined in line 5, with another text: "
            "only one of "
            "the two can count [duplicate]\n"
            "3 errors in 2 files.\n");
}

#ifndef _WIN32  // a terminal of its own is another matter there

TEST_F(CheckTool, MarksThePlaceForAPersonAtATerminal) {
  const auto [code, text] =
      run("--only missing-name . ; script -qec \"'" KORVANE_CHECK "' --only missing-name .\" /dev/null");
  EXPECT_NE(text.find("     2 |  FireFX = FX_Bnag\r\n       |           \033[1;31m^~~~~~~\033[0m\r\n"),
            std::string::npos)
      << text;
}

#endif

TEST_F(CheckTool, WritesJson) {
  const auto [code, text] = run("--format json .");
  EXPECT_EQ(code, 1);
  const QByteArrayList lines = QByteArray::fromStdString(text).trimmed().split('\n');
  ASSERT_EQ(lines.size(), 3);
  const QJsonObject missing{{"file", "Data/INI/Weapon.ini"},
                            {"line", 2},
                            {"column", 11},
                            {"length", 7},
                            {"code", "missing-name"},
                            {"level", "error"},
                            {"text", "FireFX: no FXList 'FX_Bnag' is defined; is 'FX_Bang' meant?"},
                            {"suggestion", "FX_Bang"}};
  EXPECT_EQ(QJsonDocument::fromJson(lines[0]).object(), missing) << lines[0].toStdString();
  const QJsonObject other{{"file", "Data/INI/Weapon.ini"}, {"line", 5}};
  EXPECT_EQ(QJsonDocument::fromJson(lines[2]).object()["other"].toObject(), other);
}

TEST_F(CheckTool, WritesSarif) {
  folder.write("with blank/Data/INI/Weapon.ini", folder.read("Data/INI/Weapon.ini"));
  const auto [code, text] = run("--format sarif \"with blank/\"");
  EXPECT_EQ(code, 1);
  const QJsonObject log = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
  EXPECT_EQ(log["version"], "2.1.0");
  const QJsonObject runOf = log["runs"].toArray()[0].toObject();
  EXPECT_GE(runOf["tool"].toObject()["driver"].toObject()["rules"].toArray().size(), 20);
  const QJsonObject result = runOf["results"].toArray()[0].toObject();
  EXPECT_EQ(result["ruleId"], "duplicate");
  EXPECT_EQ(result["level"], "error");
  const QJsonObject place = result["locations"].toArray()[0].toObject()["physicalLocation"].toObject();
  EXPECT_EQ(place["artifactLocation"].toObject()["uri"], "with%20blank/Data/INI/Weapon.ini");
  EXPECT_EQ(place["region"].toObject()["startLine"], 7);
}

TEST_F(CheckTool, WritesWorkflowCommands) {
  folder.write("mod/Data/INI/Weapon.ini", "Weapon A\r\nWeapon 5%\r\nEnd\r\n");
  EXPECT_EQ(run("--format github mod").second,
            "::error file=mod/Data/INI/Weapon.ini,line=2,col=1,endColumn=10,title=open-block::Weapon A is "
            "not closed "
            "before Weapon 5%25 in line 2\n");
}

TEST_F(CheckTool, AnswersByItsExitCode) {
  folder.write("empty/generals.exe", "");
  folder.write("fine/Data/INI/Weapon.ini", "Weapon A\r\nEnd\r\n");
  folder.write("binary/Data/INI/Weapon.ini", std::string("Weapon A\0\r\nEnd\r\n", 17));
  folder.write("mod.big",
               ArchiveBytes({{"Data\\INI\\Weapon.ini", "Weapon A\r\n  FireFX = FX_Bang\r\nEnd\r\nEnd\r\n"}}));
  folder.write("bad/bad.big", "BIGF but no more");
  folder.write("art.big", ArchiveBytes({{"Art\\Tank.txt", "no data"}}));
  folder.write("barren/Data/INI/readme.txt", "no data");
  struct Case {
    const char* arguments;
    int exitCode;
    const char* says;
  };
  const Case cases[] = {
      {".", 1, "3 errors"},
      {"--level warning --without missing-name,duplicate .", 0, "Nothing to report in 2 files."},
      {"--only case .", 0, "Nothing to report"},
      {"--only unused .", 1, "[unused]"},
      {"--level note .", 1, "notes in 2 files"},
      {"--level error --only key-twice .", 0, "Nothing"},
      {"fine", 0, "Nothing to report in 1 file."},
      {"fine --also .", 0, "Nothing"},
      {"mod.big", 1, "mod.big:Data/INI/Weapon.ini:4:1: error"},
      {"mod.big --also fine --only missing-name", 0, "Nothing"},
      {"--jobs 3 fine", 0, "Nothing"},
      {"--codes", 0, "missing-name"},
      {"--help", 0, "--write-baseline"},
      {"", 2, "GAME"},
      {"empty", 2, "has no Data/INI"},
      {"nowhere", 2, "nowhere"},
      {"binary", 2, "it is no text"},
      {"bad/bad.big", 2, "bad/bad.big"},
      {"bad/bad.big --format sarif", 2, "bad/bad.big: has no INI file below Data/INI that could be checked"},
      {"art.big", 2, "art.big: has no INI file"},
      {"barren", 2, "barren: has no INI file"},
      {"fine --also art.big", 2, "art.big: has no INI files"},
      {"fine --also empty", 2, "empty: has no INI files"},
      {"fine --also bad", 2, "bad/bad.big: not read"},
      {"fine --also nowhere", 2, "nowhere"},
      {"--only sideways fine", 2, "sideways"},
      {"--format xml fine", 2, "xml"},
      {"--write-baseline fine", 2, "--baseline"},
      {"--baseline missing.txt fine", 2, "missing.txt"},
      {"--baseline nowhere/b.txt --write-baseline .", 2, "nowhere/b.txt"},
      {"--jobs x fine", 2, "--jobs"},
      {". >/dev/full", 2, ""},
  };
  for (const Case& each : cases) {
    const auto [code, text] = run(each.arguments);
    EXPECT_EQ(code, each.exitCode) << each.arguments << '\n' << text;
    EXPECT_NE(text.find(each.says), std::string::npos) << each.arguments << '\n' << text;
    EXPECT_EQ(text.find(" 0 files"), std::string::npos) << each.arguments << '\n' << text;
  }
}

TEST_F(CheckTool, AcceptsWhatABaselineLists) {
  EXPECT_EQ(run("--baseline accepted.txt --write-baseline .").first, 0);
  EXPECT_NE(folder.read("accepted.txt").find("Data/INI/Weapon.ini\tduplicate\t"), std::string::npos);
  EXPECT_EQ(run("--baseline accepted.txt .").first, 0);
  folder.ini("Weapon.ini", GameFolder::CrLf("") + "; one line more\nWeapon Gun\n  FireFX = FX_Boom\nEnd\n");
  const auto [code, text] = run("--baseline accepted.txt .");
  EXPECT_EQ(code, 1);
  EXPECT_NE(text.find("FX_Boom"), std::string::npos);
}

}  // namespace
}  // namespace korvane
