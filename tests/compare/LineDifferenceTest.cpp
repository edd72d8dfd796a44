// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "compare/LineDifference.h"

namespace korvane {
namespace {

using Numbers = std::vector<std::uint32_t>;

// Whether the runs are all of both sequences and equal where they say so. Gives how many elements are equal.
std::size_t EqualElements(const Numbers& former, const Numbers& present) {
  std::size_t oldAt = 0;
  std::size_t newAt = 0;
  std::size_t equal = 0;
  bool before = false;
  for (const DifferenceRun& run : CompareSequences(former, present)) {
    EXPECT_EQ(run.oldBegin, oldAt);
    EXPECT_EQ(run.newBegin, newAt);
    EXPECT_GT(run.oldCount + run.newCount, 0u);
    if (oldAt + newAt > 0) {
      EXPECT_NE(run.equal, before);
    }
    before = run.equal;
    if (run.equal) {
      EXPECT_EQ(run.oldCount, run.newCount);
      EXPECT_TRUE(std::equal(former.begin() + static_cast<std::ptrdiff_t>(oldAt),
                             former.begin() + static_cast<std::ptrdiff_t>(oldAt + run.oldCount),
                             present.begin() + static_cast<std::ptrdiff_t>(newAt)));
      equal += run.oldCount;
    }
    oldAt += run.oldCount;
    newAt += run.newCount;
  }
  EXPECT_EQ(oldAt, former.size());
  EXPECT_EQ(newAt, present.size());
  return equal;
}

// The most that can be equal, by the table of all pairs.
std::size_t MostEqual(const Numbers& former, const Numbers& present) {
  std::vector<std::size_t> row(present.size() + 1, 0);
  for (const std::uint32_t element : former) {
    std::size_t diagonal = 0;
    for (std::size_t i = 0; i < present.size(); ++i) {
      const std::size_t above = row[i + 1];
      row[i + 1] = element == present[i] ? diagonal + 1 : std::max(above, row[i]);
      diagonal = above;
    }
  }
  return row.back();
}

Numbers RandomNumbers(std::mt19937& chance, std::size_t size, std::uint32_t different) {
  Numbers numbers(size);
  for (std::uint32_t& number : numbers) number = static_cast<std::uint32_t>(chance() % different);
  return numbers;
}

TEST(SequenceDifference, OfSmallSequencesIsTheSmallest) {
  std::mt19937 chance(1);
  const auto different = [&] { return static_cast<std::uint32_t>(1 + chance() % 12); };
  for (int i = 0; i < 300; ++i) {
    const Numbers former = RandomNumbers(chance, chance() % 40, different());
    const Numbers present = RandomNumbers(chance, chance() % 40, different());
    EXPECT_EQ(EqualElements(former, present), MostEqual(former, present)) << i;
  }
}

TEST(SequenceDifference, OfLargeSequencesIsWholeWhateverTheyAre) {
  std::mt19937 chance(2);
  for (const std::uint32_t different : {1u, 2u, 50u, 3'000u, 1'000'000u}) {
    const Numbers former = RandomNumbers(chance, 20'000, different);
    EqualElements(former, RandomNumbers(chance, 18'000, different));
    EqualElements(former, Numbers(former.rbegin(), former.rend()));
    EXPECT_EQ(EqualElements(former, former), former.size());
    if (different < 1'000) continue;
    // Where lines are mostly of one kind each, a few changes cost no more than themselves.
    Numbers changed = former;
    for (std::size_t at = 500; at < changed.size(); at += 2'000) changed[at] = 2'000'000;
    EXPECT_EQ(EqualElements(former, changed), former.size() - 10);
  }
}

TEST(LineDifference, IgnoresHowLinesEnd) {
  const auto former = LinesOf("one\r\ntwo\rthree\nfour");
  const auto present = LinesOf("one\ntwo\nthree and more\nfour\n");
  EXPECT_EQ(CompareLines(former, present),
            (std::vector<DifferenceRun>{{true, 0, 2, 0, 2}, {false, 2, 1, 2, 1}, {true, 3, 1, 3, 1}}));
}

struct WordsCase {
  const char* former;
  const char* present;
  const char* marked;  // both lines with the differing parts in brackets
};

std::string Marked(std::string text, const std::vector<LinePart>& parts) {
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    text.insert(part->begin + part->size, "]");
    text.insert(part->begin, "[");
  }
  return text;
}

TEST(WordDifference, MarksWholeWords) {
  constexpr WordsCase kCases[] = {
      {"  BuildCost = 900", "  BuildCost = 800", "  BuildCost = [900]|  BuildCost = [800]"},
      {"a b c d", "a x y d", "a [b c] d|a [x y] d"},
      {"Flags = A B", "Flags = A B C", "Flags = A B|Flags = A B[ C]"},
      {"X:1.5 Y:2", "X:-1.5 Y:2", "X:[1.5] Y:2|X:[-1.5] Y:2"},
      {"same", "same", "same|same"},
      {"", "new", "|[new]"},
  };
  for (const WordsCase& each : kCases) {
    const WordDifference difference = CompareWords(each.former, each.present);
    EXPECT_EQ(Marked(each.former, difference.former) + '|' + Marked(each.present, difference.present),
              each.marked);
  }
}

TEST(WordDifference, TakesLinesOfAnyLength) {
  const std::string longLine(1'000'000, 'x');
  const WordDifference difference = CompareWords(longLine, "x");
  EXPECT_EQ(difference.former, (std::vector<LinePart>{{0, longLine.size()}}));
  EXPECT_EQ(difference.present, (std::vector<LinePart>{{0, 1}}));
}

}  // namespace
}  // namespace korvane
