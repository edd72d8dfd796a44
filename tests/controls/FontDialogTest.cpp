// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontDialog>
#include <QListView>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <map>

#include "controls/FontDialog.h"

namespace korvane {
namespace {

// Shows the dialog and lets `user` act on it before it waits.
FontRecord Choose(const std::function<void(QFontDialog&)>& user, QWidget* owner = nullptr) {
  QTimer::singleShot(0, [&] { user(*qobject_cast<QFontDialog*>(QApplication::activeModalWidget())); });
  return FontDialog([&] { return owner; }).ShowFontDialog();
}

// A font of this machine for each weight, italic where there is one.
std::map<int, QFont> Fonts() {
  std::map<int, QFont> fonts;
  for (const QString& family : QFontDatabase::families()) {
    for (const QString& style : QFontDatabase::styles(family)) {
      const QFont font = QFontDatabase::font(family, style, 14);
      if (font.italic() || !fonts.contains(font.weight())) fonts[font.weight()] = font;
    }
  }
  return fonts;
}

TEST(FontDialog, AChoiceComesBackAsARecord) {
  const std::map<int, QFont> fonts = Fonts();
  ASSERT_TRUE(fonts.contains(QFont::Bold));
  for (auto [weight, font] : fonts) {
    font.setStrikeOut(true);
    const FontRecord record = Choose([&, &chosen = font](QFontDialog& dialog) {
      dialog.setCurrentFont(chosen);
      dialog.accept();
    });
    EXPECT_EQ(record.faceName, font.family());
    EXPECT_EQ(record.weight, weight);
    EXPECT_EQ(IsItalic(record.italic), font.italic());
    EXPECT_EQ(record.underline, 0);
    EXPECT_NE(record.strikeOut, 0);
    EXPECT_EQ(record.points(), 14);
  }
}

// Whatever its styles are called: "Regular", "Book", "Roman".
TEST(FontDialog, AnotherFamilyKeepsTheLettersUpright) {
  const auto hasUpright = [](const QString& family) {
    const QStringList styles = QFontDatabase::styles(family);
    return std::ranges::any_of(styles, [&](const QString& style) {
      const QFont font = QFontDatabase::font(family, style, 10);
      return !font.italic() && font.weight() == QFont::Normal;
    });
  };
  int families = 0;
  Choose([&](QFontDialog& dialog) {
    auto* list = dialog.findChild<QListView*>();
    QTest::keyClick(list, Qt::Key_Home);
    for (int row = 1; row < list->model()->rowCount(); ++row) {
      QTest::keyClick(list, Qt::Key_Down);
      QCoreApplication::processEvents();
      const QFont now = dialog.currentFont();
      if (!hasUpright(now.family())) continue;
      EXPECT_FALSE(now.italic()) << now.family().toStdString();
      EXPECT_EQ(now.weight(), QFont::Normal) << now.family().toStdString();
      ++families;
    }
    dialog.reject();
  });
  EXPECT_GT(families, 3);
}

TEST(FontDialog, AnOwnerThatGoesTakesTheDialogAlong) {
  auto* owner = new QWidget;
  EXPECT_TRUE(Choose([&](QFontDialog&) { delete owner; }, owner).cancelled());
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
