// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QRegularExpression>

#include <array>

#include "controls/NoticeBar.h"
#include "controls/ReadableColours.h"

namespace korvane {
namespace {

constexpr double kReadable = 4.5;

struct Desktop {
  const char* name;
  QRgb window;
  QRgb base;
  QRgb text;
  QRgb highlight;
  QRgb highlightedText;
  QRgb hint;
};
// As common desktops have them.
constexpr std::array kDesktops = {
    Desktop{"light", 0xFFEFEFEF, 0xFFFFFFFF, 0xFF000000, 0xFF308CC6, 0xFFFFFFFF, 0x80000000},
    Desktop{"blue light", 0xFFEFF0F1, 0xFFFCFCFC, 0xFF232629, 0xFF3DAEE9, 0xFFFCFCFC, 0x80232629},
    Desktop{"dark", 0xFF353535, 0xFF2D2D2D, 0xFFFFFFFF, 0xFF2A82DA, 0xFF000000, 0x80FFFFFF},
    Desktop{"blue dark", 0xFF2A2E32, 0xFF1B1E20, 0xFFFCFCFC, 0xFF3DAEE9, 0xFFFCFCFC, 0x80000000},
};

QPalette PaletteOf(const Desktop& desktop) {
  QPalette palette{QColor(desktop.window)};
  for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, QColor(desktop.text));
  palette.setColor(QPalette::Base, QColor(desktop.base));
  palette.setColor(QPalette::Highlight, QColor(desktop.highlight));
  palette.setColor(QPalette::HighlightedText, QColor(desktop.highlightedText));
  palette.setColor(QPalette::PlaceholderText, QColor::fromRgba(desktop.hint));
  palette.setColor(QPalette::Link, Qt::blue);
  return palette;
}

class Colours : public testing::TestWithParam<Desktop> {
 protected:
  static void expectReadable(const QColor& text, const QColor& ground) {
    EXPECT_GE(ContrastOf(text, ground), kReadable)
        << text.name().toStdString() << " on " << ground.name().toStdString();
  }

  const QPalette palette = WithReadableText(PaletteOf(GetParam()));
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
};

TEST_P(Colours, HintsAndSelectedTextCanBeRead) {
  const QColor hint = palette.color(QPalette::PlaceholderText);
  EXPECT_TRUE(hint.alpha() == 255 || hint == QColor::fromRgba(GetParam().hint));
  if (hint.alpha() == 255) expectReadable(hint, base);
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    expectReadable(palette.color(group, QPalette::HighlightedText),
                   palette.color(group, QPalette::Highlight));
}

TEST_P(Colours, PaleTextCanBeReadAndIsPaler) {
  expectReadable(PaleText(text, base), base);
  EXPECT_LT(ContrastOf(PaleText(text, base), base), ContrastOf(text, base));
}

TEST_P(Colours, LinksAndNoticesCanBeRead) {
  for (const auto role : {QPalette::Base, QPalette::Window})
    expectReadable(ReadableLink(palette, palette.color(role)), palette.color(role));
  QWidget window;
  window.setPalette(palette);
  auto* bar = new NoticeBar(&window);
  bar->tell(1, {Notice("See ").link("line 7", [] {})});
  const auto* label = bar->findChild<QLabel*>("Notice");
  const QColor ground = label->palette().color(QPalette::Window);
  EXPECT_NE(ground, palette.color(QPalette::Window));
  expectReadable(label->palette().color(QPalette::WindowText), ground);
  expectReadable(QRegularExpression("color:(#[0-9a-f]{6})").match(label->text()).captured(1), ground);
}

INSTANTIATE_TEST_SUITE_P(Desktops, Colours, testing::ValuesIn(kDesktops), [](const auto& desktop) {
  return QString(desktop.param.name).replace(' ', '_').toStdString();
});

TEST(Contrast, IsMeasuredAsTheGuidelinesDo) {
  EXPECT_NEAR(ContrastOf(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(ContrastOf(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
  EXPECT_EQ(ContrastOf(Qt::red, Qt::red), 1);
}

TEST(Palette, KeepsTheColoursOfTheDesktopThatCanBeRead) {
  QPalette palette = PaletteOf(kDesktops[2]);
  palette.setColor(QPalette::PlaceholderText, QColor(200, 200, 200));
  EXPECT_EQ(WithReadableText(palette), palette);
}

TEST(Palette, FollowsTheDesktopWhileTheProgramRuns) {
  const QPalette before = QApplication::palette();
  ReadablePalette::install();
  QApplication::setPalette(PaletteOf(kDesktops[3]));
  QApplication::processEvents();
  const QPalette now = QApplication::palette();
  EXPECT_GT(now.color(QPalette::PlaceholderText).lightness(), 100);
  EXPECT_GE(ContrastOf(now.color(QPalette::HighlightedText), now.color(QPalette::Highlight)), kReadable);
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace korvane
