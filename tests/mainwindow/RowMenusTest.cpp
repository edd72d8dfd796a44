// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class RowMenusTest : public MainWindow {
 protected:
  // The texts of the menu that the right button brings up over an entry; separators as "-".
  QStringList menuAt(QAbstractItemView& view, const QModelIndex& entry, const char* name) {
    view.scrollTo(entry);
    const QPoint at = view.visualRect(entry).center();
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &event);
    auto& menu = get<QMenu>(name);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    QStringList texts;
    for (const QAction* action : menu.actions())
      texts += action->isSeparator() ? "-" : (action->isEnabled() ? "" : "off ") + action->text().remove('&');
    return texts;
  }
  // Behind all else in both menus.
  static QStringList withNameCommands(const QStringList& entries) {
    return entries + QStringList{"-", "Go to Definition", "Find Uses", "Names Used by This Block"};
  }
  QStringList treeMenu(const QString& name) {
    return menuAt(get<QTreeView>("TVMenu"), node(name), "menuTree");
  }
  // What the command leaves in the clipboard.
  QString copied(const char* command) {
    QGuiApplication::clipboard()->clear();
    get<QAction>(command).trigger();
    return QGuiApplication::clipboard()->text();
  }
  // The same of Ctrl+C in the view.
  QString copiedByKey(QAbstractItemView& view) {
    QGuiApplication::clipboard()->clear();
    window->activateWindow();
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
  }
};

TEST_F(RowMenusTest, TheTreesMenuIsAboutTheEntryItIsAskedForOn) {
  open();
  EXPECT_EQ(treeMenu("Hut"),
            withNameCommands({"Copy Name", "-", "Show in File", "Manual Edit FactionUnit.ini"}));
  EXPECT_EQ(text("MHealth"), "900");
  EXPECT_EQ(copied("copyName"), "Hut");
  get<QAction>("manualEdit").trigger();
  ASSERT_EQ(launcher.requests.size(), 1U);
  EXPECT_EQ(launcher.requests[0].ManualEditFile, game.qpath() + "\\Data\\INI\\Object\\FactionUnit.ini");
  EXPECT_FALSE(launcher.requests[0].text);
  EXPECT_EQ(launcher.requests[0].place.line, 26);
}

TEST_F(RowMenusTest, AGroupOpensItsFileAtTheStartAndNoFileIsNotOpened) {
  open();
  EXPECT_EQ(treeMenu("Player Units").value(3), "Manual Edit FactionUnit.ini");
  get<QAction>("manualEdit").trigger();
  ASSERT_EQ(launcher.requests.size(), 1U);
  EXPECT_EQ(launcher.requests[0].place.line, 0);
  EXPECT_EQ(treeMenu("Gone").value(3), "off Manual Edit");
}

TEST_F(RowMenusTest, TheInformationListsRowsAreCopiedWholeAndInParts) {
  open();
  click("Jeep");
  get<QTabWidget>("F_Tab").setCurrentIndex(5);
  auto& list = get<InPlaceTable>("LstInfo");
  const auto row = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, "Vision Range").value(0);
  EXPECT_EQ(menuAt(list, row, "menuList"), withNameCommands({"Copy", "Copy Name", "Copy Value", "-",
                                                             "Show in File", "Manual Edit FactionUnit.ini"}));
  EXPECT_EQ(copied("copyRow"), "Vision Range\t150");
  EXPECT_EQ(copied("copyRowName"), "Vision Range");
  EXPECT_EQ(copied("copyRowValue"), "150");
}

TEST_F(RowMenusTest, TheCopyKeyCopiesWhatTheViewWithTheKeyboardHas) {
  open();
  click("Jeep");
  get<QTabWidget>("F_Tab").setCurrentIndex(5);
  auto& list = get<InPlaceTable>("LstInfo");
  list.selectRow(0);
  EXPECT_EQ(copiedByKey(list), "Name\tJeep");
  click("Other");
  EXPECT_EQ(copiedByKey(get<QTreeView>("TVMenu")), "Other");
}

}  // namespace
}  // namespace korvane
