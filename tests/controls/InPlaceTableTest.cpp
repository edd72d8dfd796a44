// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "controls/InPlaceTable.h"
#include "controls/MenuButton.h"

namespace korvane {
namespace {

// Rows: a typed value, a separator, choices with a value, no value, choices without one.
class InPlaceTableTest : public testing::Test {
 protected:
  void SetUp() override {
    table.addColumn("Name", 3000);
    table.addColumn("Value", 3000);
    table.setUp(1);
    fill();
    table.resize(600, 300);
    table.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
    table.setFocus();
  }

  void fill() {
    const auto choices =
        std::make_shared<const std::vector<std::string>>(std::vector<std::string>{"BURNED", "CRUSHED"});
    table.clearRows();
    table.addCell("Damage", 0);
    table.addCell("40.0", 1, EditKind::typed);
    table.addCell(kSeparatorCaption, 0);
    table.addCell(kSeparatorValue, 1);
    table.addCell("Death", 0);
    table.addCell("BURNED", 1, EditKind::choice);
    table.addChoices(choices);
    table.addCell("Speed", 0);
    table.addCell("Sound", 0);
    table.addChoices(choices);
    table.setAllCaptionsRedAndBold();
    table.finish();
  }

  QString value(int row) const { return table.model()->index(row, 1).data().toString(); }
  void select(int row, int column) { table.setCurrentIndex(table.model()->index(row, column)); }
  QWidget* editor() const { return QApplication::focusWidget(); }
  QLineEdit* line() const {
    if (const auto* box = qobject_cast<QComboBox*>(editor())) return box->lineEdit();
    return qobject_cast<QLineEdit*>(editor());
  }
  void type(const char* letters) {
    for (; *letters != 0; ++letters) QTest::keyClick(editor(), *letters);
  }
  void key(Qt::Key which) {
    QTest::keyClick(editor(), which);
    QTest::qWait(0);
  }

  InPlaceTable table;
};

TEST_F(InPlaceTableTest, EditingStartsWithF2WithTypingAndWithADoubleClick) {
  select(0, 0);
  QTest::keyClick(&table, Qt::Key_F2);
  ASSERT_NE(line(), nullptr);
  EXPECT_EQ(line()->selectedText(), "40.0");
  key(Qt::Key_Escape);
  type("7");
  ASSERT_NE(line(), nullptr);
  EXPECT_EQ(line()->text(), "7");
  key(Qt::Key_Escape);
  const QPoint cell = table.visualRect(table.model()->index(2, 1)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell);
  EXPECT_NE(qobject_cast<QComboBox*>(editor()), nullptr);
}

TEST_F(InPlaceTableTest, EscapeGivesTheOldTextBack) {
  select(0, 1);
  type("99");
  key(Qt::Key_Escape);
  EXPECT_EQ(value(0), "40.0");
}

TEST_F(InPlaceTableTest, TabEditsTheNextValueThatCanBeEdited) {
  select(0, 1);
  type("1");
  key(Qt::Key_Tab);
  EXPECT_EQ(value(0), "1");
  ASSERT_NE(qobject_cast<QComboBox*>(editor()), nullptr);
  EXPECT_EQ(line()->text(), "BURNED");
  key(Qt::Key_Tab);
  EXPECT_EQ(table.currentIndex().row(), 4) << "the value without a kind is passed over";
  key(Qt::Key_Backtab);
  EXPECT_EQ(table.currentIndex().row(), 2);
}

TEST_F(InPlaceTableTest, EnterKeepsTheTextAndMovesOn) {
  select(0, 1);
  type("12");
  key(Qt::Key_Return);
  EXPECT_EQ(value(0), "12");
  EXPECT_EQ(table.currentIndex().row(), 2);
}

TEST_F(InPlaceTableTest, AChoiceCanBePickedOrTyped) {
  select(2, 1);
  QTest::keyClick(&table, Qt::Key_F2);
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_EQ(value(2), "CRUSHED");
  select(4, 1);
  type("MELTED");
  key(Qt::Key_Tab);
  EXPECT_EQ(value(4), "MELTED");
}

TEST_F(InPlaceTableTest, NothingElseCanBeEdited) {
  for (const auto& [row, column] : {std::pair{0, 0}, {1, 0}, {1, 1}, {3, 1}})
    EXPECT_FALSE(table.model()->flags(table.model()->index(row, column)).testFlag(Qt::ItemIsEditable));
  table.setUp(0);
  select(0, 1);
  QTest::keyClick(&table, Qt::Key_F2);
  EXPECT_EQ(line(), nullptr);
  EXPECT_EQ(table.selectedRow()->caption, "Damage");
}

TEST_F(InPlaceTableTest, TheRowsOfAFillAreSeenAllAtOnce) {
  table.clearRows();
  table.addCell("Armour", 0);
  EXPECT_EQ(table.model()->rowCount(), 5);
  EXPECT_EQ(table.rowCount(), 1);
  table.finish();
  EXPECT_EQ(table.model()->rowCount(), 1);
  table.addRow("GATTLING");
  EXPECT_EQ(table.model()->rowCount(), 2);
  EXPECT_TRUE(table.row(1).value.isEmpty());
  EXPECT_FALSE(table.row(1).redAndBold);
}

TEST_F(InPlaceTableTest, AValueOfSeveralLinesIsSeenWhole) {
  const int one = table.rowHeight(0);
  table.clearRows();
  table.addCell("Damage", 0);
  table.addCell("40.0\r\n50.0", 1, EditKind::typed);
  table.finish();
  EXPECT_GE(table.rowHeight(0), one + table.fontMetrics().lineSpacing());
  fill();
  EXPECT_EQ(table.rowHeight(0), one);
}

int RedPixels(InPlaceTable& table, int row) {
  const QImage image = table.viewport()->grab(table.visualRect(table.model()->index(row, 0))).toImage();
  int red = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      if (pixel.red() > pixel.green() + 80 && pixel.red() > pixel.blue() + 80) ++red;
    }
  }
  return red;
}

TEST_F(InPlaceTableTest, EveryCaptionIsRedEvenThatOfASeparator) {
  for (const int row : {0, 1, 4}) EXPECT_GT(RedPixels(table, row), 0) << row;
  EXPECT_EQ(table.row(1).caption.toStdString(), kSeparatorCaption);
}

TEST_F(InPlaceTableTest, TheMenuIsAskedForWithTheRightButtonAndTheMenuKey) {
  int asked = 0;
  QObject::connect(new MenuButton(table), &MenuButton::pressed, [&] { ++asked; });
  QTest::mouseClick(table.viewport(), Qt::LeftButton);
  EXPECT_EQ(asked, 0);
  QTest::mouseClick(table.viewport(), Qt::RightButton);
  EXPECT_EQ(asked, 1);
  QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&table, &menuKey);
  EXPECT_EQ(asked, 2);
}

TEST_F(InPlaceTableTest, TheMenuOfAnEntryIsAskedForWhereThereIsOne) {
  std::vector<QPoint> asked;
  QObject::connect(new MenuButton(table), &MenuButton::asked,
                   [&](const QPoint& at) { asked.push_back(table.viewport()->mapFromGlobal(at)); });
  const auto ask = [&](QContextMenuEvent::Reason reason, QWidget& widget, QPoint at) {
    QContextMenuEvent menu(reason, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &menu);
  };
  const QRect third = table.visualRect(table.model()->index(2, 0));
  ask(QContextMenuEvent::Mouse, *table.viewport(), third.center());
  ask(QContextMenuEvent::Mouse, *table.viewport(), {5, table.viewport()->height() - 1});
  EXPECT_EQ(asked, std::vector{third.center()});
  table.setCurrentIndex({});
  ask(QContextMenuEvent::Keyboard, table, {});
  EXPECT_EQ(asked.size(), 1U);
  select(2, 0);
  ask(QContextMenuEvent::Keyboard, table, {});
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_EQ(asked[1], third.center());
}

}  // namespace
}  // namespace korvane
