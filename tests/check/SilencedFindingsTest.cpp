// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "check/Baseline.h"
#include "check/CheckDesk.h"
#include "check/IgnoreComments.h"

namespace korvane {
namespace {

constexpr const char* kButtons = "CommandButton B\nEnd\n";

// How many of the missing names in the set's first two slots are left.
std::size_t LeftOf(const std::string& set) {
  const GameFolder folder;
  folder.ini("CommandButton.ini", kButtons);
  folder.ini("CommandSet.ini", set);
  return CheckFolder(folder).size();
}

TEST(SilencedFindings, AreThoseWithACommentOnTheirLineOrTheirBlock) {
  struct Case {
    const char* set;
    std::size_t left;
  };
  for (const auto& [set, left] : {
           Case{"CommandSet S\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet S\n  1 = X ; korvane: ignore missing-name\n  2 = Y\nEnd\n", 1},
           Case{"CommandSet S\n  1 = X korvane: ignore missing-name\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet S ; korvane: ignore missing-name\n  1 = X\n  2 = Y\nEnd\n", 0},
           Case{"CommandSet S ; wanted ; korvane: ignore key-twice, MISSING-NAME\n  1 = X\n  2 = Y\nEnd\n",
                0},
           Case{"CommandSet S // korvane:ignore missing-name\n  1 = X\n  2 = Y\nEnd\n", 0},
           Case{"CommandSet S ; korvane: ignore key-twice\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet S ; korvane: ignore\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet S ; korvane: ignore missing\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"; korvane: ignore missing-name\nCommandSet S\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet A ; korvane: ignore missing-name\nEnd\nCommandSet S\n  1 = X\n  2 = Y\nEnd\n", 2},
           Case{"CommandSet S\n  ; korvane: ignore missing-name\n  1 = X\n  2 = Y\nEnd\n", 2},
       }) {
    EXPECT_EQ(LeftOf(set), left) << set;
  }
  EXPECT_EQ(LeftOf("CommandSet S\n  1 = X " + IgnoreCommentFor("missing-name") + "\nEnd\n"), 0U);
}

TEST(SilencedFindings, MayBeThoseOfRulesThatLookAtAllFiles) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon A ; korvane: ignore unused\nEnd\nWeapon B\nEnd\n");
  EXPECT_EQ(Brief(CheckFolder(folder, RuleSet::all())),
            std::vector<std::string>{"Weapon.ini:3:8:1 note unused"});
}

TEST(SilencedFindings, CountLinesAsTheGameDoes) {
  const IgnoreComments comments("1\r2\n3\r\n4 ; korvane: ignore case\n\r; korvane: ignore case",
                                [] { return std::vector<LineRange>(); });
  std::vector<int> silenced;
  for (int line = 0; line < 9; ++line)
    if (comments.silences("case", line)) silenced.push_back(line);
  EXPECT_EQ(silenced, (std::vector<int>{4, 6}));
}

TEST(SilencedFindings, AreThoseOfABaseline) {
  const GameFolder folder;
  folder.ini("CommandButton.ini", kButtons);
  folder.ini("CommandSet.ini", "CommandSet S\n  1 = X\n  1 = Y\nEnd\nCommandSet s\nEnd\n");
  const Findings before = CheckFolder(folder);
  const std::string listed = BaselineText(before);
  ASSERT_EQ(before.size(), 4U);

  // Lines above move the findings; one more of a kind is new.
  folder.ini("CommandSet.ini", "; a\n; b\nCommandSet S\n  1 = X\n  1 = Y\n  2 = X\nEnd\nCommandSet s\nEnd\n");
  Findings after = CheckFolder(folder);
  Baseline::FromText(listed).remove(after);
  ASSERT_EQ(after.size(), 1U);
  EXPECT_EQ(after[0].line, 6);

  Findings all = before;
  Baseline::FromText("nonsense\n\t\n\t\t\t\r\n# file\tcode\ttext").remove(all);
  EXPECT_EQ(all, before);
  std::string crLf = GameFolder::CrLf(listed);
  Baseline::FromText(crLf).remove(all);
  EXPECT_TRUE(all.empty()) << "a checkout may have changed the line ends";

  Findings twice = before;
  twice.insert(twice.end(), before.begin(), before.end());
  Baseline::FromText(listed).remove(twice);
  EXPECT_EQ(twice, before) << "each is accepted as often as it is listed";
}

}  // namespace
}  // namespace korvane
