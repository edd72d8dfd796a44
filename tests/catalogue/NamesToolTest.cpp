// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "stock/StockFiles.h"
#include "support/GameFolder.h"
#include "support/ToolRun.h"

namespace korvane {

namespace {

class NamesTool : public testing::Test {
 protected:
  NamesTool() {
    folder.ini("Weapon.ini", "Weapon TankGun\n  FireFX = FX_Flash ; \xE4\n  FireSound = Bang\nEnd\n");
    folder.ini("Sub/Units.ini", "Object Tank\n  WeaponSet\n    Weapon = PRIMARY tankgun\n  End\nEnd\n");
    folder.ini("Voice.ini", "DialogEvent Bang\nEnd\n");
    folder.write("INI.big", ArchiveBytes({{"Data\\INI\\FXList.ini", "FXList FX_Flash\r\nEnd\r\n"}}));
  }

  // Runs the tool on the folder; gives its exit code and what it wrote.
  std::pair<int, std::string> run(const std::string& arguments) {
    return RunTool(folder.native(""), KORVANE_NAMES, arguments);
  }

  GameFolder folder;
};

TEST_F(NamesTool, AnswersInText) {
  const struct {
    const char* arguments;
    int exitCode;
    const char* text;
  } cases[] = {
      {". definitions TANKGUN", 0, "Data/INI/Weapon.ini:1:8: Weapon TankGun\n"},
      {". uses TankGun", 0, "Data/INI/Sub/Units.ini:3:22: Weapon tankgun: Weapon = PRIMARY tankgun\n"},
      {". uses fx_flash", 0, "Data/INI/Weapon.ini:2:12: FXList FX_Flash: FireFX = FX_Flash ; \xC3\xA4\n"},
      {". uses bang --kind AudioEvent", 0, "Data/INI/Weapon.ini:3:15: DialogEvent Bang: FireSound = Bang\n"},
      {". definitions FX_Flash", 0, "INI.big/Data/INI/FXList.ini:1:8: FXList FX_Flash\n"},
      {". search tg", 0, "Data/INI/Weapon.ini:1:8: Weapon TankGun\n"},
      {"--kind object . search tank", 0, "Data/INI/Sub/Units.ini:1:8: Object Tank\n"},
      {". list --kind Weapon", 0, "Data/INI/Weapon.ini:1:8: Weapon TankGun\n"},
      {"--kind AudioEvent . definitions Bang", 1, ""},
      {"--kind Object . uses TankGun", 1, ""},
      {". uses Nothing", 1, ""},
  };
  for (const auto& each : cases) {
    const auto [exitCode, text] = run(each.arguments);
    EXPECT_EQ(exitCode, each.exitCode) << each.arguments;
    EXPECT_EQ(text, each.text) << each.arguments;
  }
  EXPECT_EQ(run(". list").second,
            "INI.big/Data/INI/FXList.ini:1:8: FXList FX_Flash\n"
            "Data/INI/Sub/Units.ini:1:8: Object Tank\n"
            "Data/INI/Voice.ini:1:13: DialogEvent Bang\n"
            "Data/INI/Weapon.ini:1:8: Weapon TankGun\n");
}

TEST_F(NamesTool, AnswersInJson) {
  EXPECT_EQ(run("--format json . uses TankGun").second,
            R"({"file":"Data/INI/Sub/Units.ini","line":3,"column":22,"kind":"Weapon","name":"tankgun",)"
            R"("block":"Object Tank / WeaponSet","key":"Weapon"})"
            "\n");
  EXPECT_EQ(
      run("--format json . definitions fx_flash").second,
      R"({"file":"Data/INI/FXList.ini","archive":"INI.big","line":1,"column":8,"kind":"FXList","name":"FX_Flash"})"
      "\n");
}

TEST_F(NamesTool, TellsWhatItCannotDo) {
  folder.write("Data/INI/Zero.ini", std::string_view("\0", 1));
  folder.write("Empty/file", "");
  const std::string asTheSystemNamesIt = std::filesystem::path("INI/Zero.ini").make_preferred().string();
  const struct {
    const char* arguments;
    int exitCode;
    std::string says;
  } cases[] = {
      {"", 2, "GAME"},
      {".", 2, "subcommand"},
      {". uses", 2, "NAME"},
      {". --kind Wepon list", 2, "no kind \"Wepon\"; there are Animation"},
      {". --format xml list", 2, "xml"},
      {"Empty list", 2, "no INI files"},
      {"nowhere list", 2, "nowhere: it is no folder"},
      {". uses Nothing", 2, asTheSystemNamesIt + ": it is no text"},
      {". uses TankGun", 0, "Zero.ini: it is no text"},
      {"--help", 0, "definitions"},
  };
  for (const auto& each : cases) {
    const auto [exitCode, text] = run(each.arguments);
    EXPECT_EQ(exitCode, each.exitCode) << each.arguments;
    EXPECT_NE(text.find(each.says), std::string::npos) << each.arguments << ": " << text;
  }
}

}  // namespace

}  // namespace korvane
