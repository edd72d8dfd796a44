// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include <atomic>
#include <memory>

#include "search/LineFinder.h"

namespace korvane {
namespace {

class LineFinderTest : public testing::Test {
 protected:
  LineFinderTest() {
    QObject::connect(&finder, &LineFinder::found, [this](const FoundLines& found) {
      ++batches;
      for (const FoundLine& line : found.lines) texts += line.text;
      full = found.full;
    });
    QObject::connect(&finder, &LineFinder::finished, [this](bool stopped) {
      ++ends;
      wasStopped = stopped;
    });
  }

  bool waitForEnd() {
    return QTest::qWaitFor([this] { return ends > 0; });
  }
  // Finds lines of this text until it is stopped.
  static LineFinder::Search endless(const QString& text) {
    return [text](LineFinder::Teller& teller) {
      teller.found({{}, {}, text});
      while (teller.goesOn()) std::this_thread::yield();
    };
  }

  QStringList texts;
  int batches = 0;
  int ends = 0;
  bool full = false;
  bool wasStopped = false;
  LineFinder finder;  // goes first
};

TEST_F(LineFinderTest, TheFirstLineArrivesWhileTheSearchGoesOn) {
  finder.start(endless("first"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !texts.isEmpty(); }));
  EXPECT_EQ(ends, 0);
  finder.stop();
  EXPECT_TRUE(waitForEnd());
  EXPECT_TRUE(wasStopped);
  EXPECT_FALSE(finder.isRunning());
}

TEST_F(LineFinderTest, NothingOfAStoppedSearchIsShownWithTheLinesOfTheNextOne) {
  auto told = std::make_shared<std::atomic<bool>>(false);
  finder.start([told](LineFinder::Teller& teller) {
    teller.found({{}, {}, "old"});
    *told = true;
    while (teller.goesOn()) std::this_thread::yield();
  });
  while (!*told) std::this_thread::yield();  // its line is on the way, and no event has run yet
  finder.start([](LineFinder::Teller& teller) { teller.found({{}, {}, "new"}); });
  EXPECT_TRUE(waitForEnd());
  QTest::qWait(10);
  EXPECT_EQ(texts, QStringList{"new"});
  EXPECT_EQ(ends, 1);
}

TEST_F(LineFinderTest, LinesComeInOrderAndInFewBatchesAndEndWhereNobodyReadsOn) {
  constexpr int kMost = static_cast<int>(LineFinder::kMostLines);
  finder.start([](LineFinder::Teller& teller) {
    for (int line = 0; teller.found({{}, {}, QString::number(line)}); ++line) {
    }
  });
  EXPECT_TRUE(waitForEnd());
  ASSERT_EQ(texts.size(), kMost);
  EXPECT_EQ(texts.last(), QString::number(kMost - 1));
  EXPECT_TRUE(full);
  EXPECT_LT(batches, kMost / 10);
}

TEST_F(LineFinderTest, ASearchThatStillRunsEndsWithItsWindow) {
  {
    LineFinder other;
    other.start(endless("never seen"));
  }
  QCoreApplication::processEvents();
  EXPECT_TRUE(texts.isEmpty());
}

}  // namespace
}  // namespace korvane
