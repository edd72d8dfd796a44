// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QPalette>

#include "controls/Icons.h"

namespace korvane {
namespace {

// The lightness of the pixels that are drawn fully, from 0 to 255; the accents are in between.
std::pair<int, int> LightnessRange(const QIcon& icon) {
  const QImage image = icon.pixmap(QSize(32, 32)).toImage();
  std::pair<int, int> range{255, 0};
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour = image.pixelColor(x, y);
      if (colour.alpha() < 255) continue;
      range = {std::min(range.first, colour.lightness()), std::max(range.second, colour.lightness())};
    }
  }
  return range;
}

TEST(Icons, FollowThePaletteWhilePainted) {
  const QPalette before = QApplication::palette();
  ASSERT_FALSE(ThemeIcon("run").isNull());  // from here on the drawings are there
  const QFileInfoList drawings = QDir(":/icons").entryInfoList();
  ASSERT_FALSE(drawings.isEmpty());
  for (const QFileInfo& drawing : drawings) {
    const std::string name = drawing.baseName().toStdString();
    const QIcon icon = ThemeIcon(drawing.baseName());
    QPalette palette = before;
    palette.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(palette);
    EXPECT_EQ(LightnessRange(icon).first, 0) << name;
    palette.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(palette);
    EXPECT_EQ(LightnessRange(icon).second, 255) << name;
    EXPECT_GT(LightnessRange(icon).first, 0) << name;
  }
  QApplication::setPalette(before);
}

TEST(Icons, AnUnknownNameIsAnEmptyIcon) {
  EXPECT_TRUE(ThemeIcon("no such drawing").isNull());
}

}  // namespace
}  // namespace korvane
