// SPDX-License-Identifier: GPL-3.0-or-later
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QToolButton>
#include <QToolTip>

#include <iterator>
#include <string>
#include <vector>

#include "controls/FullTextTips.h"
#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

struct Field {
  int tab;
  const char* list;
  const char* link;
  const char* name;  // that it shows of the Jeep
  const char* heard;
};
constexpr Field kFields[] = {
    {0, "CboLocomotor", "locomotorLink", "Wheels", "Go to Definition Locomotor"},
    {1, "CboArmour", "armourLink", "Plate", "Go to Definition Armour Type"},
    {2, "PWeapon", "primaryLink", "Gun", "Go to Definition Primary Weapon"},
    {2, "SWeapon", "secondaryLink", "Rocket", "Go to Definition Secondary Weapon"},
    {2, "TWeapon", "tertiaryLink", "", "Go to Definition Tertiary Weapon"},
};

const QString kNothing = "nothing";
constexpr int kRoomForAll = 800;  // pixels of the tab box

class ShownNamesTest : public MainWindow {
 protected:
  void openJeep() {
    open();
    makeTabBox(kRoomForAll);
    click("Jeep");
    launcher.takeCalls();
  }
  void makeTabBox(int width) {
    get<QTabWidget>("F_Tab").setFixedWidth(width);
    window->resize(width + 400, window->height());
    QApplication::processEvents();
  }
  void showTab(int tab) {
    get<QTabWidget>("F_Tab").setCurrentIndex(tab);
    QApplication::processEvents();
  }
  // What the tooltip at a place of the widget says, without its markup.
  static QString tipAt(QWidget& widget, const QPoint& at) {
    QToolTip::showText({}, kNothing, &widget);
    QHelpEvent event(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &event);
    return QToolTip::text().remove(QRegularExpression("<[^>]*>"));
  }
  static QString tipOf(QAbstractItemView& view, const QModelIndex& entry) {
    view.scrollTo(entry);
    return tipAt(*view.viewport(), view.visualRect(entry).center());
  }
  // Of all controls that are seen in the tab box, but the links: name and place in the window.
  std::string places() const {
    QStringList found;
    for (const QWidget* each : get<QTabWidget>("F_Tab").findChildren<QWidget*>()) {
      const QRect place(each->mapTo(window.get(), QPoint()), each->size());
      if (!each->isVisible() || each->objectName().endsWith("Link")) continue;
      found += QString("%1 %2 %3x%4+%5+%6")
                   .arg(each->metaObject()->className(), each->objectName())
                   .arg(place.width())
                   .arg(place.height())
                   .arg(place.x())
                   .arg(place.y());
    }
    return found.join('\n').toStdString();
  }
};

TEST_F(ShownNamesTest, ALinkGoesToTheDefinitionOfTheFieldsName) {
  openJeep();
  for (const Field& each : kFields) {
    SCOPED_TRACE(each.link);
    showTab(each.tab);
    auto& link = get<QToolButton>(each.link);
    EXPECT_EQ(link.accessibleName(), each.heard);
    EXPECT_EQ(link.isEnabled(), *each.name != 0);
    link.click();
    const QStringList expected =
        *each.name == 0 ? QStringList{} : QStringList{QString("definition of ") + each.name};
    EXPECT_EQ(launcher.takeCalls(), expected);
  }
  get<QComboBox>("TWeapon").setEditText("Howitzer");
  get<QToolButton>("tertiaryLink").click();
  EXPECT_EQ(launcher.takeCalls(), QStringList{"definition of Howitzer"});
  click("Hut");
  EXPECT_FALSE(get<QToolButton>("primaryLink").isEnabled());
}

TEST_F(ShownNamesTest, TheKeyboardReachesALinkRightBehindItsRow) {
  openJeep();
  for (const Field& each : kFields) {
    SCOPED_TRACE(each.link);
    if (*each.name == 0) continue;
    showTab(each.tab);
    get<QComboBox>(each.list).setFocus();
    for (int i = 0; i < 2 && !get<QToolButton>(each.link).hasFocus(); ++i)
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(get<QToolButton>(each.link).hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(launcher.takeCalls(), QStringList{QString("definition of ") + each.name});
  }
}

TEST_F(ShownNamesTest, LinksTakeFreeSpaceAndMoveNothing) {
  openJeep();
  for (const int width : {600, kRoomForAll}) {
    makeTabBox(width);
    std::vector<std::string> with;
    for (const Field& each : kFields) {
      SCOPED_TRACE(std::string(each.link) + " in " + std::to_string(width));
      showTab(each.tab);
      with.push_back(places());
      const auto& link = get<QToolButton>(each.link);
      EXPECT_TRUE(link.isVisible() || width < kRoomForAll);
      if (!link.isVisible()) continue;
      EXPECT_TRUE(link.parentWidget()->rect().contains(link.geometry()));
      EXPECT_EQ(link.parentWidget()->childAt(link.geometry().center()), &link);
    }
    for (const Field& each : kFields) get<QToolButton>(each.link).setParent(nullptr);
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
      showTab(kFields[i].tab);
      EXPECT_EQ(places(), with[i]);
    }
    open();
    click("Jeep");
  }
}

TEST_F(ShownNamesTest, TooltipsTellOfTheNameAndOfNothingElse) {
  FullTextTips::install();
  openJeep();
  for (const Field& each : kFields) {
    showTab(each.tab);
    const QString about = *each.name == 0 ? kNothing : QString("about ") + each.name;
    auto& line = *get<QComboBox>(each.list).lineEdit();
    EXPECT_EQ(tipAt(line, {5, 5}), about) << each.list;
    EXPECT_EQ(tipAt(get<QToolButton>(each.link), {5, 5}),
              "Go to Definition" + (*each.name == 0 ? QString() : about));
  }
  get<QComboBox>("TWeapon").setEditText("Howitzer");
  EXPECT_EQ(tipAt(*get<QComboBox>("TWeapon").lineEdit(), {5, 5}), "Not saved: typed here onlyabout Howitzer");
  auto& tree = get<QTreeView>("TVMenu");
  EXPECT_EQ(tipOf(tree, node("Hut")), "about Hut");
  EXPECT_EQ(tipOf(tree, node("Player Units")), kNothing);
  showTab(5);
  auto& list = get<InPlaceTable>("LstInfo");
  const auto row = [&](const char* caption) {
    return list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, caption).value(0);
  };
  EXPECT_EQ(tipOf(list, row("Secondary Weapon")), "about Rocket");
  EXPECT_EQ(tipOf(list, row("Locomotor")), "about Wheels");
  EXPECT_EQ(tipOf(list, row("Cost")), kNothing);
}

TEST_F(ShownNamesTest, AFieldsMenuHasTheCommandsForNamesBehindItsOwn) {
  openJeep();
  showTab(2);
  auto& line = *get<QComboBox>("PWeapon").lineEdit();
  QTest::mouseClick(&line, Qt::RightButton);
  QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, line.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&line, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QStringList texts;
  for (const QAction* action : menu->actions()) texts += action->text().section('\t', 0, 0).remove('&');
  EXPECT_EQ(texts.mid(texts.size() - 5),
            (QStringList{"Select All", "", "Show in File", "Go to Definition", "Find Uses"}));
  menu->close();
  ASSERT_TRUE(window->nameHere());
  EXPECT_EQ(window->nameHere()->name, "Gun");
}

TEST_F(ShownNamesTest, TheNameAtHandIsTheOneWithTheKeyboard) {
  openJeep();
  struct Case {
    int tab;
    const char* widget;
    const char* name;
  };
  for (const Case& each :
       {Case{0, "CboLocomotor", "Wheels"}, Case{0, "LocoTab", "Wheels"}, Case{1, "CboArmour", "Plate"},
        Case{1, "armourLink", "Plate"}, Case{1, "MHealth", nullptr}, Case{2, "TWeapon", nullptr},
        Case{5, "CboLoco", "Wheels"}, Case{5, "TVMenu", "Jeep"}}) {
    SCOPED_TRACE(each.widget);
    showTab(each.tab);
    get<QWidget>(each.widget).setFocus();
    const auto here = window->nameHere();
    ASSERT_EQ(here.has_value(), each.name != nullptr);
    if (here) {
      EXPECT_EQ(here->name, each.name);
    }
  }
}

}  // namespace
}  // namespace korvane
