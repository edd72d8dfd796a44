// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMenu>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

#include "manualeditor/FindingMarks.h"
#include "manualeditor/LiveFindings.h"
#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

using Sci = QsciScintillaBase;

// A misspelt effect in line 2, a decimal comma in line 3, a misspelt key in line 6.
const std::string kFaulty = GameFolder::CrLf(
    "Weapon Gun\n  FireFX = FX_Bnag\n  PrimaryDamage = 10,5\nEnd\nWeapon Bow\n  PrimryDamage = 1\nEnd\n");
constexpr int kSignOfErrors = 6;
constexpr int kSignOfWarnings = 5;
constexpr int kLineBelowErrors = 26;

class LiveFindingsTest : public ManEditTest {
 protected:
  LiveFindingsTest() {
    game_.ini("FXList.ini", "FXList FX_Bang\nEnd\n");
    watch();
  }

  void watch() {
    QObject::connect(window_->findChild<LiveFindings*>(), &LiveFindings::marked, [this] { ++marked_; });
  }
  bool waitForMarks(int times = 1) {
    const int wanted = marked_ + times;
    return WaitFor([&] { return marked_ >= wanted; });
  }
  void openChecked(const std::string& bytes) {
    const int before = marked_;
    openFile(bytes);
    ASSERT_TRUE(WaitFor([&] { return marked_ > before; }));
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    window_->activateWindow();
    QTest::keyClick(text().focusProxy(), key, modifiers);
  }

  // "2: FX_Bnag missing-name" for every finding.
  QStringList found() const {
    QStringList all;
    for (const auto& [finding, span] : text().findingMarks().findings()) {
      const auto size = static_cast<std::size_t>(span.to - span.from);
      const auto marked = text().utf8().substr(static_cast<std::size_t>(span.from), size);
      all += QStringLiteral("%1: %2 ").arg(text().placeOf(span.from).line + 1).arg(CharactersOfUtf8(marked)) +
             QByteArray(finding.code.data(), static_cast<qsizetype>(finding.code.size()));
    }
    return all;
  }
  bool hasSign(int line, int sign) const {
    return (text().view().send(Sci::SCI_MARKERGET, line - 1) & (1 << sign)) != 0;
  }

  int marked_ = 0;
};

TEST_F(LiveFindingsTest, TheShownFileIsMarkedByLevel) {
  openChecked(kFaulty);
  EXPECT_EQ(found(),
            QStringList({"2: FX_Bnag missing-name", "3: 10,5 number-form", "6: PrimryDamage key-typo"}));
  EXPECT_TRUE(hasSign(2, kSignOfErrors));
  EXPECT_FALSE(hasSign(2, kSignOfWarnings));
  EXPECT_TRUE(hasSign(3, kSignOfWarnings));
  const auto below = [&](qsizetype position) {
    return text().view().send(Sci::SCI_INDICATORVALUEAT, kLineBelowErrors, position);
  };
  const auto name = static_cast<qsizetype>(kFaulty.find("FX_Bnag"));
  EXPECT_EQ(below(name - 1), 0);
  EXPECT_NE(below(name), 0);
  EXPECT_NE(below(name + 6), 0);
  EXPECT_EQ(below(name + 7), 0);
}

TEST_F(LiveFindingsTest, WhatIsTypedCountsAfterAPauseAndMarksMoveMeanwhile) {
  openChecked(kFaulty);
  type(QStringLiteral(";"));
  press(Qt::Key_Return);
  text().replaceSelection(QStringLiteral("; \u00e9\u0416"));
  press(Qt::Key_Return);
  const QStringList moved = {"4: FX_Bnag missing-name", "5: 10,5 number-form", "8: PrimryDamage key-typo"};
  EXPECT_EQ(found().last(), moved.last()) << "before the check";
  ASSERT_TRUE(waitForMarks());
  EXPECT_EQ(found(), moved) << found().join('\n').toStdString();
}

TEST_F(LiveFindingsTest, OnlyTheLastOfManyKeysIsChecked) {
  openChecked(kFaulty);
  const int before = marked_;
  for (int i = 0; i < 20; ++i) {
    type("x");
    QTest::qWait(20);
  }
  EXPECT_EQ(marked_, before) << "less than the pause between two keys";
  EXPECT_TRUE(waitForMarks());
}

// A misspelt name is found and mended without a mouse.
TEST_F(LiveFindingsTest, KeysGoFromOneToTheNextAndMendThem) {
  openChecked(kFaulty);
  press(Qt::Key_F8);
  EXPECT_EQ(text().selectedText(), "FX_Bnag");
  EXPECT_TRUE(QToolTip::text().contains("FX_Bang")) << QToolTip::text().toStdString();
  press(Qt::Key_Period, Qt::ControlModifier);
  EXPECT_EQ(text().selectedText(), "FX_Bang");
  press(Qt::Key_F8);
  EXPECT_EQ(text().selectedText(), "10,5");
  press(Qt::Key_Period, Qt::ControlModifier);
  EXPECT_EQ(text().selectedText(), "10,5") << "nothing is suggested";
  press(Qt::Key_F8);
  press(Qt::Key_Period, Qt::ControlModifier);
  EXPECT_EQ(text().selectedText(), "PrimaryDamage");
  ASSERT_TRUE(waitForMarks());
  EXPECT_EQ(found(), QStringList("3: 10,5 number-form"));
  EXPECT_TRUE(text().isModified());
  for (const char* taken : {"FX_Bnag", "PrimryDamage"})
    EXPECT_FALSE(text().fileBytes().bytes.find(taken) != std::string::npos);
  press(Qt::Key_Z, Qt::ControlModifier);
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, kFaulty) << "one step to undo for each";
}

TEST_F(LiveFindingsTest, ATooltipIsAsWideAsItsTextUpToALimit) {
  const std::string name = "FX_Bang" + std::string(150, 'x');
  openChecked("Weapon Gun\r\n  FireFX = FX_Bnag\r\n  FireFX = " + name + "\r\nEnd\r\n");
  press(Qt::Key_F8);
  EXPECT_TRUE(
      QToolTip::text().contains("no FXList 'FX_Bnag' is defined; is 'FX_Bang' meant? [missing-name]\n"))
      << QToolTip::text().toStdString();
  press(Qt::Key_F8);
  QTextDocument shown;
  shown.setHtml(QToolTip::text());
  EXPECT_TRUE(shown.firstBlock().blockFormat().nonBreakableLines());
  for (const QString& line : shown.toPlainText().split('\n'))
    EXPECT_LE(line.size(), 100) << line.toStdString();
}

TEST_F(LiveFindingsTest, TheWayGoesRoundTheEndsOfTheText) {
  openChecked(kFaulty);
  for (const char* expected : {"PrimryDamage", "10,5", "FX_Bnag", "PrimryDamage"}) {
    press(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(text().selectedText(), expected);
  }
  press(Qt::Key_F8);
  EXPECT_EQ(text().selectedText(), "FX_Bnag");
}

TEST_F(LiveFindingsTest, FaultsNeverBlockSaving) {
  openChecked(kFaulty);
  type("x");
  trigger("MnuSave");
  EXPECT_EQ(saved(), 'x' + kFaulty);
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_TRUE(messages_.asked.empty());
}

TEST_F(LiveFindingsTest, AnotherFilesNamesCountWhenItHasChanged) {
  openChecked(kFaulty);
  game_.ini("FXList.ini", "FXList FX_Bnag\nEnd\n");
  names_.refresh();
  ASSERT_TRUE(waitForMarks());
  EXPECT_EQ(found().first(), "3: 10,5 number-form");
}

TEST_F(LiveFindingsTest, EachTabHasItsOwnAndTheUnsavedTextsOfOthersCount) {
  openChecked(kFaulty);
  const QStringList faults = found();
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\FXList.ini"}));
  show();
  EXPECT_EQ(found(), QStringList());
  EXPECT_FALSE(hasSign(2, kSignOfErrors));
  EXPECT_TRUE(waitForMarks());
  trigger("previousTab");
  EXPECT_EQ(found(), faults) << "at once";
  EXPECT_TRUE(hasSign(2, kSignOfErrors));
  trigger("nextTab");
  text().goTo(0, 7, 7);
  type("FX_Bnag");
  trigger("previousTab");
  EXPECT_TRUE(WaitFor([this] {
    return found() == QStringList({"3: 10,5 number-form", "6: PrimryDamage key-typo"});
  })) << found().join('\n').toStdString();
  press(Qt::Key_F8);
  press(Qt::Key_F8);
  press(Qt::Key_Period, Qt::ControlModifier);
  EXPECT_EQ(text().selectedText(), "PrimaryDamage");
  trigger("nextTab");
  EXPECT_EQ(text().fileBytes().bytes, "FXList FX_Bnag\r\nEnd\r\n") << "the other text is left alone";
  trigger("closeTab");
  EXPECT_TRUE(WaitFor([this] { return found().contains("2: FX_Bnag missing-name"); }))
      << "as the file has it";
}

TEST_F(LiveFindingsTest, NothingIsCalledMissingBeforeTheFurtherDataAreRead) {
  game_.write("Original/Data/INI/Effects.ini", "FXList FX_Bnag\r\nEnd\r\n");
  openChecked(kFaulty);
  names_.setFurtherData({game_.qpath() + "\\Original"});
  type(" ");
  ASSERT_TRUE(waitForMarks());
  EXPECT_EQ(found().first(), "3: 10,5 number-form");
}

TEST_F(LiveFindingsTest, OnlyWholeDataFilesAreChecked) {
  openChecked(kFaulty);
  openPart(kFaulty);
  EXPECT_TRUE(found().isEmpty());
  EXPECT_FALSE(hasSign(2, kSignOfErrors));
  game_.write("Data/Notes.ini", kFaulty);
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\Notes.ini"}));
  show();
  type("x");
  QTest::qWait(500);
  EXPECT_TRUE(found().isEmpty());
  press(Qt::Key_F8);
  EXPECT_EQ(text().selectedText(), "") << "there is nowhere to go";
}

TEST_F(LiveFindingsTest, ATextOfFaultsAloneIsMarkedPieceByPiece) {
  std::string faults;
  for (int i = 0; i < 3000; ++i) faults += "loose\r\n";
  openChecked("Weapon Gun\r\n  FireFX = FX_Bnag\r\nEnd\r\n" + faults);
  const std::size_t all = text().findingMarks().findings().size();
  ASSERT_GT(all, 0U);
  const int last = text().placeOf(text().findingMarks().findings().back().span.from).line + 1;
  EXPECT_TRUE(WaitFor([&] { return hasSign(last, kSignOfErrors); }));
}

}  // namespace
}  // namespace korvane
