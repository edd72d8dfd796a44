// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "catalogue/ShownBlock.h"

namespace korvane {
namespace {

std::string CrLf(std::string_view text) {
  std::string lines;
  for (const char c : text) lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return lines;
}

struct Case {
  const char* what;
  const char* text;
  std::size_t line, lastLine, hidden, strange, own;
  const char* name;
  const char* base = "";
};
std::ostream& operator<<(std::ostream& out, const Case& c) {
  return out << c.what;
}

class ShownBlocks : public testing::TestWithParam<Case> {};

TEST_P(ShownBlocks, AreFoundAsTheyAreShown) {
  const Case& c = GetParam();
  const ShownBlock block = FindShownBlock(CrLf(c.text), "Object", "Tank");
  EXPECT_EQ(block.line, c.line);
  EXPECT_EQ(block.lastLine, c.lastLine);
  EXPECT_EQ(block.hiddenLines, c.hidden);
  EXPECT_EQ(block.strangeLines, c.strange);
  EXPECT_EQ(block.ownLine, c.own);
  EXPECT_EQ(block.name, c.name);
  EXPECT_EQ(block.ownBase, c.base);
}

INSTANTIATE_TEST_SUITE_P(
    Files, ShownBlocks,
    testing::Values(Case{"as it should be",
                         "; x\nobject TANK ; y\n  Body = ActiveBody M\n  End\nEND\nObject Z\nEnd\n", 2, 5, 0,
                         0, 2, "TANK"},
                    Case{"a longer name first", "Object TankHunter\nEnd\nObject Tank\nEnd\n", 1, 2, 0, 0, 3,
                         "TankHunter"},
                    Case{"a longer name only", "Object TankHunter\nEnd\n", 1, 2, 0, 0, 0, "TankHunter"},
                    Case{"a reskin", "ObjectReskin Tank Truck\nEnd\n", 0, 0, 0, 0, 1, "", "Truck"},
                    Case{"two blanks", "Object  Tank\nEnd\n", 0, 0, 0, 0, 1, ""},
                    Case{"a tab", "Object\tTank\nEnd\n", 0, 0, 0, 0, 1, ""},
                    Case{"not in the first column", " Object Tank\nEnd\n", 0, 0, 0, 0, 0, ""},
                    Case{"an inner End in the first column",
                         "Object Tank\n  Body = ActiveBody M\n    MaxHealth = 1\nEnd\n  BuildCost = "
                         "5\n\nEnd\nObject Z\nEnd\n",
                         1, 4, 3, 0, 1, "Tank"},
                    Case{"its own End indented",
                         "Object Tank\n  BuildCost = 5\n  End\nObject Z\n  BuildCost = 6\nEnd\n", 1, 6, 0, 3,
                         1, "Tank"},
                    Case{"no End at all", "Object Tank\n  BuildCost = 5\n", 1, 2, 0, 0, 1, "Tank"},
                    Case{"nothing", "", 0, 0, 0, 0, 0, ""}),
    [](const auto& each) { return "Case" + std::to_string(each.index); });

// Lines are counted as an editor counts them, but begin only where they are read.
TEST(ShownBlocks, LoneLineFeedsCountAsLinesOfTheEditor) {
  const ShownBlock block = FindShownBlock("; a\n; b\nObject Tank\rObject Tank\r\nEnd\r\n", "Object", "tank");
  EXPECT_EQ(block.line, 4U);
  EXPECT_EQ(block.lastLine, 5U);
}

}  // namespace
}  // namespace korvane
