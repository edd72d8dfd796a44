// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "compare/AlignedRows.h"
#include "compare/ComparedTexts.h"
#include "compare/LineDifference.h"

namespace korvane {
namespace {

const std::string kTank =
    "Object Tank\n  BuildCost = 900 ; much\n  BuildTime = 8\n  Behavior = Heal Tag_1\n"
    "    Amount = 5\n  End\nEnd\n";
const std::string kBike = "Object Bike\n  Speed = 3\nEnd\n";
const std::string kJeep = "Object Jeep\n  BuildCost = 10\nEnd\n";

std::string With(std::string text, const std::string& before, const std::string& after) {
  return text.replace(text.find(before), before.size(), after);
}

// "Object Tank: BuildCost 900 → 800", one after the other.
std::string Changes(const ComparedTexts& texts) {
  std::string all;
  for (const TextChange& change : texts.changes())
    all += (all.empty() ? "" : "; ") + change.block + ": " + change.summary;
  return all;
}

TEST(ComparedTexts, SayWhatChangedInWhichBlock) {
  struct Case {
    std::string present;
    std::string changes;
    std::size_t lines;
  };
  const std::string both = kTank + kJeep;
  const Case cases[] = {
      {both, "", 0},
      {With(both, "900", "800"), "Object Tank: BuildCost 900 → 800", 1},
      {With(both, "900 ;", "900  ;"), "Object Tank: spacing, order or comments", 1},
      {With(both, "    Amount = 5\n", ""), "Object Tank: Amount 5 removed", 1},
      {With(both, "  BuildTime = 8\n", "  BuildTime =\n  Armor = A\n"),
       "Object Tank: BuildTime 8 → (empty), Armor A added", 2},
      {With(both, "Cost = 10", "Cost = 20") + kBike, "Object Jeep: BuildCost 10 → 20; Object Bike: added", 4},
      {kJeep, "Object Tank: removed", 7},
      {both + kTank + kJeep, "Object Tank: added, and 1 more", 10},
      {"; new\n" + both, ": spacing, order or comments", 1},
      {With(both, "\nEnd\n", "\nEnd ; of it\n"), "Object Tank: spacing, order or comments", 1},
  };
  for (const Case& each : cases) {
    const ComparedTexts texts(both, each.present);
    EXPECT_EQ(Changes(texts), each.changes);
    EXPECT_EQ(texts.linesChanged(), each.lines) << each.changes;
    EXPECT_EQ(CountChangedLines(both, each.present), each.lines) << each.changes;
  }
}

TEST(ComparedTexts, APartIsComparedWithItsPlaceInTheWholeText) {
  const ComparedTexts texts(With(kTank, "900", "700"), kJeep + kTank + kJeep, true);
  EXPECT_EQ(Changes(texts), "Object Tank: BuildCost 700 → 900");
  EXPECT_EQ(texts.takenBack(texts.changes()[0]), kJeep + With(kTank, "900", "700") + kJeep);
  EXPECT_EQ(CountChangedLines(kTank, kJeep + kTank + kJeep, true), 0u);
}

TEST(ComparedTexts, LineEndsAreNoChangeAndStayWhenAnotherIsTakenBack) {
  const ComparedTexts texts("a\r\nb\r\nc", "a\nX\nc");
  ASSERT_EQ(texts.changes().size(), 1u);
  EXPECT_EQ(texts.takenBack(texts.changes()[0]), "a\nb\r\nc");
  const ComparedTexts atEnd("a\nb", "a");
  EXPECT_EQ(atEnd.takenBack(atEnd.changes()[0]), "a\r\nb") << "the last line gets an end of its own";
  const ComparedTexts gone("a", "x\na\n");
  EXPECT_EQ(gone.takenBack(gone.changes()[0]), "a\n");
}

std::string RandomText(std::mt19937& chance) {
  std::string text;
  for (auto lines = chance() % 30; lines > 0; --lines) {
    text += std::string(1, static_cast<char>('a' + chance() % 6)) + " = " + std::to_string(chance() % 3);
    if (lines > 1 || chance() % 2 == 0) text += chance() % 3 == 0 ? "\r\n" : "\n";
  }
  return text;
}

// Every line of both texts has its place in the rows, in its order; and equal rows say the truth.
void ExpectAligned(const ComparedTexts& texts) {
  const AlignedRows aligned = AlignRows(texts);
  std::uint32_t former = 0;
  std::uint32_t present = 0;
  for (std::size_t i = 0; i < aligned.rows.size(); ++i) {
    const AlignedRow& row = aligned.rows[i];
    if (row.former != 0) {
      EXPECT_EQ(row.former, ++former);
    }
    if (row.present != 0) {
      EXPECT_EQ(row.present, ++present);
    }
    EXPECT_EQ(row.state == AlignedRow::State::fold, row.former == 0 && row.present == 0);
    if (row.state == AlignedRow::State::same) {
      EXPECT_EQ(texts.formerLines()[row.former - 1], texts.presentLines()[row.present - 1]);
    }
    for (std::size_t behind = 1; behind <= row.folded; ++behind)
      EXPECT_EQ(aligned.rows.at(i + behind).state, AlignedRow::State::same);
  }
  EXPECT_EQ(former, texts.formerLines().size());
  EXPECT_EQ(present, texts.presentLines().size());
  ASSERT_EQ(aligned.changes.size(), texts.changes().size());
  for (const std::size_t row : aligned.changes) {
    EXPECT_NE(aligned.rows[row].state, AlignedRow::State::same);
    EXPECT_NE(aligned.rows[row].state, AlignedRow::State::fold);
  }
}

TEST(ComparedTexts, TakingBackOneChangeAfterTheOtherLeadsToTheFormerText) {
  std::mt19937 chance(16);
  for (int round = 0; round < 300; ++round) {
    const std::string former = RandomText(chance);
    std::string present = RandomText(chance);
    for (int step = 0; step < 100; ++step) {
      const ComparedTexts texts(former, present);
      ExpectAligned(texts);
      if (texts.changes().empty()) break;
      const TextChange& change = texts.changes()[chance() % texts.changes().size()];
      EXPECT_EQ(texts.find(texts, change), &change);
      present = texts.takenBack(change);
    }
    EXPECT_EQ(LinesOf(present), LinesOf(former)) << former;
  }
}

TEST(ComparedTexts, AChangeIsFoundAgainOnlyWhereItsLinesAreStillThere) {
  const ComparedTexts texts(kTank, With(kTank, "900", "800"));
  const ComparedTexts moved(kTank, kJeep + With(kTank, "900", "800"));
  const TextChange* found = moved.find(texts, texts.changes()[0]);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(moved.takenBack(*found), kJeep + kTank);
  const ComparedTexts other(kTank, With(kTank, "900", "850"));
  EXPECT_EQ(other.find(texts, texts.changes()[0]), nullptr);
}

TEST(ComparedTexts, LinesWithTheSameKeyStandBesideEachOther) {
  const ComparedTexts texts("a = 1\nb = 1\nc = 1\n", "x = 2\nb = 2\nc = 2\n");
  const ComparedTexts shifted("b = 1\nc = 1\n", "x = 2\nb = 2\nc = 2\n");
  EXPECT_EQ(AlignRows(texts).rows[1], (AlignedRow{AlignedRow::State::changed, 2, 2, 0}));
  EXPECT_EQ(AlignRows(shifted).rows[0], (AlignedRow{AlignedRow::State::added, 0, 1, 0}));
  EXPECT_EQ(AlignRows(shifted).rows[2], (AlignedRow{AlignedRow::State::changed, 2, 3, 0}));
}

}  // namespace
}  // namespace korvane
