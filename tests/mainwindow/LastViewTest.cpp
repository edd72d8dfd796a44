// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScreen>

#include "controls/FullTextTips.h"
#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class LastViewTest : public MainWindow {
 protected:
  void openAgain() {
    window->close();
    open();
    get<QTreeView>("TVMenu").collapseAll();
    window->restoreLastView();
  }
  QTreeView& tree() const { return get<QTreeView>("TVMenu"); }
  QString selected() const { return tree().selectionModel()->selectedIndexes().value(0).data().toString(); }
  int tab() const { return get<QTabWidget>("F_Tab").currentIndex(); }
};

TEST_F(LastViewTest, IsShownAgainWhenThatIsWanted) {
  settings.SaveSet("InfoTab", "0");
  open();
  get<QTreeView>("TVMenu").collapse(node("Gone"));
  click("Jeep");
  get<QTabWidget>("F_Tab").setCurrentIndex(5);
  auto& list = get<InPlaceTable>("LstInfo");
  list.setFixedHeight(100);
  list.scrollTo(list.model()->index(8, 0), QAbstractItemView::PositionAtTop);
  ASSERT_EQ(list.rowAt(0), 8);
  openAgain();
  EXPECT_EQ(selected(), "");

  settings.SaveSet("RestoreLast", "1");
  open();
  get<QTreeView>("TVMenu").collapse(node("Gone"));
  click("Hut");
  click("Jeep");
  get<QTabWidget>("F_Tab").setCurrentIndex(5);
  openAgain();
  EXPECT_EQ(selected(), "Jeep");
  EXPECT_EQ(text("IHealth"), "200");
  EXPECT_EQ(tab(), 5);
  EXPECT_TRUE(tree().isExpanded(node("Player Units")));
  EXPECT_FALSE(tree().isExpanded(node("Gone")));
}

TEST_F(LastViewTest, TheListsFirstRowIsStoredAndShown) {
  settings.SaveSet("RestoreLast", "1");
  settings.save("Last View", "Object", "|Player Units|Other|Jeep");
  settings.save("Last View", "Tab", "5");
  settings.save("Last View", "Row", "8");
  open();
  get<InPlaceTable>("LstInfo").setFixedHeight(100);
  window->restoreLastView();
  EXPECT_EQ(get<InPlaceTable>("LstInfo").rowAt(0), 8);
  window->close();
  EXPECT_EQ(settings.get("Last View", "Row", {}), "8");
}

TEST_F(LastViewTest, DamagedEntriesArePassedOver) {
  settings.SaveSet("RestoreLast", "1");
  settings.SaveSet("InfoTab", "2");
  for (const char* number : {"-1", "99", "x", "99999999999", ""}) {
    settings.save("Last View", "Object", "|Player Units|Other|Gone away");
    settings.save("Last View", "Tab", number);
    settings.save("Last View", "Row", number);
    settings.save("Expanded Groups", "ItemNum", number);
    settings.save("Expanded Groups", "0Name", "|Nothing");
    open();
    window->restoreLastView();
    EXPECT_EQ(selected(), "") << number;
    EXPECT_EQ(tab(), 2) << number;
    click("Jeep");
    EXPECT_EQ(text("IHealth"), "200");
  }
}

TEST_F(LastViewTest, TheSmallestWindowShowsNamesAndCaptions) {
  open();
  window->resize(1, 1);
  EXPECT_GE(tree().width(), 180);
  EXPECT_LE(window->minimumSizeHint().width(), window->screen()->availableGeometry().width());
  EXPECT_LE(window->minimumSizeHint().height(), 360 - 20) << "half a small screen, with a title bar";
  click("Jeep");
  get<QTabWidget>("F_Tab").setCurrentIndex(0);
  get<QTabWidget>("F_Tab").setFixedWidth(640 - 208);  // as on half a small screen, beside the tree
  ASSERT_TRUE(QTest::qWaitFor([this] {
    window->resize(1, 1);
    return window->width() < 660;
  }));
  QApplication::processEvents();
  for (int i = 1; i < 9; ++i) {
    const auto& field = get<QLineEdit>(qPrintable(QString("HS_TextBox%1").arg(i)));
    EXPECT_EQ(CutTextAt(field, {}), "") << "unit of field " << i;
  }
  const auto& counted = get<QLabel>("Panel3");
  EXPECT_GE(counted.width(), counted.sizeHint().width());
  for (const QLabel* label : get<QTabWidget>("F_Tab").currentWidget()->findChildren<QLabel*>())
    EXPECT_GE(label->width(), label->sizeHint().width()) << qPrintable(label->text());
}

}  // namespace
}  // namespace korvane
