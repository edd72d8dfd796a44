// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QSet>
#include <QTest>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <map>
#include <memory>

#include "controls/ReadableColours.h"
#include "startup/Program.h"
#include "support/TestDesk.h"
#include "support/Windows.h"
#include "textview/DifferenceView.h"
#include "textview/ScintillaView.h"

namespace korvane {
namespace {

using Sci = QsciScintillaBase;

constexpr double kReadable = 4.5;
constexpr const char* kText =
    "; a comment on it\n"
    "Object Jeep ; another\n"
    "  BuildCost = 100 ; its BuildCost\n"
    "  Scale = 1.5 ; its BuildCost too\n"
    "End\n";

// On the pictures of the real controls: the colour of each word against what it stands on.
class ContrastTest : public testing::TestWithParam<bool>, protected TestDesk {
 protected:
  void SetUp() override {
    const QColor window = GetParam() ? QColor(0x35, 0x35, 0x35) : QColor(0xEF, 0xEF, 0xEF);
    QPalette palette(window);
    palette.setColor(QPalette::Base, GetParam() ? QColor(0x2D, 0x2D, 0x2D) : QColor(Qt::white));
    palette.setColor(QPalette::Text, GetParam() ? Qt::white : Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8C, 0xC6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(WithReadableText(palette));
  }
  void TearDown() override { QApplication::setPalette(before); }

  static QColor styleColour(const ScintillaView& text, unsigned message, qsizetype style) {
    const auto bgr = static_cast<QRgb>(text.send(message, style));
    return {qBlue(bgr), qGreen(bgr), qRed(bgr)};
  }
  static QPoint cornerOf(const ScintillaView& text, qsizetype position) {
    return {static_cast<int>(text.send(Sci::SCI_POINTXFROMPOSITION, 0, position)),
            static_cast<int>(text.send(Sci::SCI_POINTYFROMPOSITION, 0, position))};
  }
  static bool isSelected(const ScintillaView& text, qsizetype position) {
    return position >= text.send(Sci::SCI_GETSELECTIONSTART) &&
           position < text.send(Sci::SCI_GETSELECTIONEND);
  }

  // What most of the place is coloured; a letter's own colours are many, and few of them alike.
  static QColor groundOf(const QImage& picture, const QRect& place) {
    std::map<QRgb, int> pixels;
    for (int y = place.top(); y <= place.bottom(); ++y) {
      for (int x = place.left(); x <= place.right(); ++x) ++pixels[picture.pixel(x, y)];
    }
    return std::ranges::max_element(pixels, {}, [](const auto& each) { return each.second; })->first;
  }
  static bool isInWord(const ScintillaView& text, qsizetype at, qsizetype start) {
    return text.send(Sci::SCI_GETCHARAT, at) > ' ' && isSelected(text, at) == isSelected(text, start) &&
           text.send(Sci::SCI_GETSTYLEAT, at) == text.send(Sci::SCI_GETSTYLEAT, start);
  }

  // Word by word.
  void measure(QsciScintilla& control) {
    const ScintillaView text(control);
    const QImage picture = control.viewport()->grab().toImage();
    const QColor selected = control.palette().color(QPalette::Active, QPalette::HighlightedText);
    for (qsizetype at = 0, end = 0; at < text.send(Sci::SCI_GETLENGTH); at = std::max(end, at + 1)) {
      for (end = at; isInWord(text, end, at);) ++end;
      const QPoint foot(-1, control.fontMetrics().ascent());
      const QRect place(cornerOf(text, at), cornerOf(text, end) + foot);
      if (end == at || !picture.rect().contains(place)) continue;
      const qsizetype style = text.send(Sci::SCI_GETSTYLEAT, at);
      add(isSelected(text, at) ? selected : styleColour(text, Sci::SCI_STYLEGETFORE, style),
          groundOf(picture, place));
    }
    constexpr auto kNumbers = Sci::STYLE_LINENUMBER;
    add(styleColour(text, Sci::SCI_STYLEGETFORE, kNumbers),
        styleColour(text, Sci::SCI_STYLEGETBACK, kNumbers));
  }
  void add(const QColor& ink, const QColor& ground) {
    const double contrast = ContrastOf(ink, ground);
    grounds += ground.name();
    EXPECT_GE(contrast, kReadable) << ink.name().toStdString() << " on " << ground.name().toStdString();
  }

  const QPalette before = QApplication::palette();
  QSet<QString> grounds;
};

TEST_P(ContrastTest, TheGamesTextCanBeReadUnderEveryMark) {
  Program program(services, folders, {});
  program.showManualEditor({.text = GameFolder::CrLf(kText)});
  ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("FrmManEdit") != nullptr; }));
  QWidget& editor = *VisibleWindow("FrmManEdit");
  QTest::qWait(20);
  auto& sought = *editor.findChild<QComboBox*>("CboFind");
  sought.setEditText("BuildCost");
  QTest::keyClick(&sought, Qt::Key_Return);
  QTest::qWait(300);
  measure(*editor.findChild<QsciScintilla*>());
  EXPECT_GE(grounds.size(), 5) << "the paper, the line at hand, places found, what is selected, line numbers";
}

TEST_P(ContrastTest, ComparedTextsCanBeReadInEveryRow) {
  DifferenceView view;
  view.resize(900, 400);
  const std::string former = GameFolder::CrLf(std::string(kText) + "; gone\n  Gone = 1\nEnd\n");
  const std::string present =
      GameFolder::CrLf("Object New ; it\n  Key = 1\nEnd\n" + std::string(kText).replace(60, 3, "Car"));
  view.show(std::make_shared<const TextPair>(former, present), "Former", "Present");
  view.setFolded(false);
  view.setVisible(true);
  QTest::qWait(50);
  for (auto* text : view.findChildren<QsciScintilla*>()) measure(*text);
  EXPECT_GE(grounds.size(), 5) << "the paper, three kinds of rows, changed words";
}

INSTANTIATE_TEST_SUITE_P(Palettes, ContrastTest, testing::Bool(),
                         [](const auto& palette) { return palette.param ? "dark" : "light"; });

}  // namespace
}  // namespace korvane
