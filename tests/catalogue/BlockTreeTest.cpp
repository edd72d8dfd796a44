// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "catalogue/BlockTree.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

constexpr std::string_view kText =
    "; what it is\r\n"
    "Object A ; x\r\n"
    "  Draw = D T\r\n"
    "    ConditionState = NONE\r\n"
    "    End\r\n"
    "  End\r\n"
    "  BuildCost = 1\r\n"
    "End\r\n"
    "\r\n"
    "Weapon B\r\n"
    "  ClipSize = 1\r\n"
    "Weapon C\r\n"
    "End";

TEST(BlockTree, HoldsEveryBlockWithItsLines) {
  const std::vector<TextBlock> blocks = ReadBlocks(kText);
  ASSERT_EQ(blocks.size(), 5U);
  const struct {
    const char* keyword;
    const char* words;
    std::uint32_t parent, depth, first, last;
    bool closed;
  } expected[] = {{"Object", "A", TextBlock::kNone, 0, 2, 8, true},
                  {"Draw", "D T", 0, 1, 3, 6, true},
                  {"ConditionState", "NONE", 1, 2, 4, 5, true},
                  {"Weapon", "B", TextBlock::kNone, 0, 10, 11, false},
                  {"Weapon", "C", TextBlock::kNone, 0, 12, 13, true}};
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(blocks[i].keyword, expected[i].keyword);
    EXPECT_EQ(blocks[i].words, expected[i].words);
    EXPECT_EQ(blocks[i].sign, expected[i].depth > 0);
    EXPECT_EQ(blocks[i].parent, expected[i].parent);
    EXPECT_EQ(blocks[i].depth, expected[i].depth);
    EXPECT_EQ(blocks[i].firstLine, expected[i].first);
    EXPECT_EQ(blocks[i].lastLine, expected[i].last);
    EXPECT_EQ(blocks[i].closed, expected[i].closed);
  }
  EXPECT_EQ(kText.substr(blocks[3].begin, blocks[3].behind - blocks[3].begin),
            "Weapon B\r\n  ClipSize = 1\r\n");
  EXPECT_EQ(blocks[4].behind, kText.size());
}

TEST(BlockTree, FindsTheInnermostBlockOfALine) {
  const std::vector<TextBlock> blocks = ReadBlocks(kText);
  constexpr std::uint32_t kNone = TextBlock::kNone;
  constexpr std::uint32_t kExpected[] = {kNone, 0, 1, 2, 2, 1, 0, 0, kNone, 3, 3, 4, 4, kNone};
  for (std::uint32_t line = 1; line <= std::size(kExpected); ++line)
    EXPECT_EQ(BlockAtLine(blocks, line), kExpected[line - 1]) << line;
  EXPECT_EQ(BlockAtLine({}, 1), kNone);
}

TEST(BlockTree, TakesWhatIsTooDeepForKeys) {
  std::string text = "Object Tank\n";
  for (std::size_t i = 0; i < 2 * kDeepestBlock; ++i) text += "InheritableModule\n";
  EXPECT_EQ(ReadBlocks(text).size(), kDeepestBlock);
}

}  // namespace

}  // namespace korvane
