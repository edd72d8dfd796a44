// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontDialog>
#include <QTimer>

#include "controls/FontDialog.h"

namespace korvane {
namespace {

// Shows the dialog and lets `user` act on it before it waits.
FontRecord Choose(const std::function<void(QFontDialog&)>& user) {
  QTimer::singleShot(0, [&] { user(*qobject_cast<QFontDialog*>(QApplication::activeModalWidget())); });
  return FontDialog([] { return nullptr; }).ShowFontDialog();
}

// Some font of this machine that is bold and italic.
QFont BoldItalicFont() {
  for (const QString& family : QFontDatabase::families()) {
    for (const QString& style : QFontDatabase::styles(family)) {
      if (QFontDatabase::bold(family, style) && QFontDatabase::italic(family, style)) {
        return QFontDatabase::font(family, style, 14);
      }
    }
  }
  return {};
}

TEST(FontDialog, AChoiceComesBackAsARecord) {
  QFont font = BoldItalicFont();
  font.setStrikeOut(true);
  const FontRecord record = Choose([&](QFontDialog& dialog) {
    dialog.setCurrentFont(font);
    dialog.accept();
  });
  EXPECT_FALSE(record.cancelled());
  EXPECT_TRUE(IsBold(record.weight));
  EXPECT_TRUE(IsItalic(record.italic));
  EXPECT_EQ(record.underline, 0);
  EXPECT_NE(record.strikeOut, 0);
  EXPECT_EQ(record.points(), 14);
}

TEST(FontDialog, CancellingGivesThePresetWithoutAName) {
  const FontRecord record = Choose([](QFontDialog& dialog) { dialog.reject(); });
  EXPECT_TRUE(record.cancelled());
  EXPECT_EQ(record.tenthsOfPoint, 100);
  EXPECT_FALSE(IsBold(record.weight));
}

TEST(FontDialog, ASizeBeyondTheLimitsIsPutRightBeforeItIsTaken) {
  for (const auto& [asked, given] : {std::pair{8, 100}, {96, 720}}) {
    const FontRecord record = Choose([size = asked](QFontDialog& dialog) {
      QFont font = dialog.currentFont();
      font.setPointSize(size);
      dialog.setCurrentFont(font);
      dialog.accept();
      EXPECT_TRUE(dialog.isVisible());
      dialog.accept();
    });
    EXPECT_EQ(record.tenthsOfPoint, given);
  }
}

}  // namespace
}  // namespace korvane
