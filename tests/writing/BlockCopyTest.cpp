// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "writing/BlockCopy.h"

namespace korvane {
namespace {

constexpr std::string_view kPath = "Data\\INI\\Object\\FactionUnit.ini";
constexpr std::string_view kText =
    "Object Scout\r\nEnd\r\n"
    "Object Tank ; the Tank\r\n"
    "  CommandSet = TankCommandSet\r\n"
    "  CommandSet = SharedSet\r\n"
    "  Behavior = PhysicsBehavior ModuleTag_01\r\n"
    "  End\r\n"
    "  WeaponSet\r\n"
    "    Weapon = PRIMARY OnlyGun\r\n"
    "  End\r\n"
    "End\r\n"
    "Object Bomber\r\n  CommandSet = SharedSet\r\nEnd\r\n"
    "AIData\r\nEnd\r\n"
    "Weapon Open\r\n  ClipSize = 1\r\n";

Catalogue Names() {
  const auto file = [](std::string_view path, std::string_view text) {
    return CatalogueFile::read({.path = std::string(path)}, text);
  };
  return {{},
          {file("Data\\INI\\CommandSet.ini", "CommandSet TankCommandSet\nEnd\nCommandSet SharedSet\nEnd\n"),
           file(kPath, kText), file("Data\\INI\\Object\\System.ini", "Object Elsewhere\nEnd\n"),
           file("Data\\INI\\Weapon.ini", "Weapon OnlyGun\nEnd\nWeapon Shell\nEnd\n")},
          {}};
}

class BlockCopyTest : public testing::Test {
 protected:
  const TextBlock& block(std::string_view words) const {
    return *std::find_if(blocks_.begin(), blocks_.end(),
                         [&](const TextBlock& each) { return each.words == words; });
  }

  std::vector<TextBlock> blocks_ = ReadBlocks(kText);
  Catalogue names_ = Names();
};

TEST_F(BlockCopyTest, NamesAreRefusedWithTheReason) {
  const struct {
    const char* name;
    const char* reason;
  } cases[] = {
      {"NewTank", ""},
      {"Tank2", ""},     // behind the block whose name it begins with
      {"Scouting", ""},  // also behind it
      {"Shell", ""},     // the name of another kind
      {"", "Type a name."},
      {"New Tank", "A name has no blanks"},
      {"New=Tank", "A name has no blanks"},
      {"New;", "A name has no blanks"},
      {"New//Tank", "A name has no blanks"},
      {"tank", "There is Object Tank in line 3."},
      {"Elsewhere", "There is Object Elsewhere in Data\\INI\\Object\\System.ini, line 1."},
      {"Bomb", "This is the beginning of Object Bomber in line 12"},
      {"sco", "This is the beginning of Object Scout in line 1"},
      {"BomberMk2", "This begins like Object Bomber in line 12"},
  };
  for (const auto& each : cases) {
    const std::string reason = WhyNotNamed({each.name, block("Tank"), blocks_, &names_, kPath});
    EXPECT_TRUE(reason.starts_with(each.reason)) << each.name << ": " << reason;
    EXPECT_EQ(reason.empty(), *each.reason == '\0') << each.name << ": " << reason;
  }
}

TEST_F(BlockCopyTest, BlocksWithoutANameOrAnEndAreNotCopied) {
  EXPECT_EQ(WhyNoCopy(block("Tank")), "");
  EXPECT_EQ(WhyNoCopy(block("Open")), "Weapon Open in line 17 has no End.");
  EXPECT_EQ(WhyNoCopy(block("")), "A block WeaponSet has no name.");
}

TEST_F(BlockCopyTest, ChangesTheNameInTheHeaderOnly) {
  const TextBlock& tank = block("Tank");
  const BlockCopy copy = CopyOf(kText, tank, "NewTank");
  std::string expected(kText.substr(tank.begin, tank.behind - tank.begin));
  expected = "\r\n" + expected.replace(expected.find("Tank"), 4, "NewTank");
  EXPECT_EQ(copy.text, expected);
  EXPECT_EQ(copy.text.substr(copy.nameAt, 7), "NewTank");
}

TEST_F(BlockCopyTest, ABlockThatEndsTheTextGetsALineEnd) {
  constexpr std::string_view kShort = "  Weapon  weapon\nEnd";
  const BlockCopy copy = CopyOf(kShort, ReadBlocks(kShort).front(), "W");
  EXPECT_EQ(copy.text, "\r\n\r\n  Weapon  W\nEnd");
}

TEST_F(BlockCopyTest, AByteOrderMarkStaysAtTheStartOfTheText) {
  constexpr std::string_view kMarked = "\xEF\xBB\xBFWeapon V\nEnd\n";
  EXPECT_EQ(CopyOf(kMarked, ReadBlocks(kMarked).front(), "W").text, "\r\nWeapon W\nEnd\n");
}

TEST_F(BlockCopyTest, TellsWhichNamesACopyMayWantForItsOwn) {
  const OwnNames own = OwnNamesIn(kText, block("Tank"), &names_);
  EXPECT_EQ(own.names, std::vector<std::string>({"TankCommandSet", "OnlyGun"}));
  EXPECT_EQ(own.moduleTags, std::vector<std::string>({"ModuleTag_01"}));
  EXPECT_EQ(OwnNamesIn(kText, block("Tank"), nullptr).names, std::vector<std::string>({"TankCommandSet"}));
  EXPECT_TRUE(OwnNamesIn(kText, block("Bomber"), &names_).names.empty());
}

}  // namespace
}  // namespace korvane
