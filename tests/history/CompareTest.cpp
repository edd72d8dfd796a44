// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <fstream>
#include <sstream>

#include "compare/ExportFormats.h"
#include "history/CompareWindow.h"
#include "platform/FileWriter.h"
#include "support/TestDesk.h"
#include "textview/DifferenceView.h"

namespace korvane {
namespace {

class FakePlaces : public PlaceLauncher {
 public:
  void showPlace(const FilePlace& place) override { places.push_back(place); }
  void showItem(const ItemPlace&) override {}
  void goBack() override {}
  void goForward() override {}
  std::vector<FilePlace> places;
};

constexpr std::string_view kOriginal =
    "Weapon Gun\n  Damage = 10\n  Range = 5\nEnd\nWeapon Bow\n  Range = 9\nEnd\nWeapon Axe\nEnd\n";

// A modification beside a folder with the original's data: Gun is changed, Axe is gone, Pike is new.
class CompareTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    original.ini("Weapon.ini", kOriginal);
    original.ini("Armor.ini", "Armor Steel\n  Armor = DEFAULT 50%\nEnd\n");
    game.ini("Weapon.ini",
             "; mine\nWeapon Bow\n  Range   = 9 ; far\nEnd\nWeapon Gun\n  Damage = 12\n  Range = 5\nEnd\n");
    game.ini("Armor.ini", "Armor Steel\n  Armor = DEFAULT 50%\nEnd\nWeapon Pike\n  Range = 2\nEnd\n");
    comparison.setOriginal(original.qpath());
    window.show();
    ASSERT_TRUE(waitForResult());
  }

  bool waitForResult() {
    return QTest::qWaitFor([this] { return comparison.result() != nullptr && !comparison.isRunning(); });
  }
  template <typename Widget>
  Widget& part(const char* name) const {
    return *window.findChild<Widget*>(name);
  }
  // "Weapon (3): Axe removed, Gun changed", a text for each kind.
  QStringList rows() const {
    QStringList found;
    const QAbstractItemModel& model = *part<QTreeView>("items").model();
    for (int i = 0; i < model.rowCount(); ++i) {
      const QModelIndex kind = model.index(i, 0);
      QStringList items;
      for (int row = 0; row < model.rowCount(kind); ++row)
        items +=
            model.index(row, 0, kind).data().toString() + ' ' + model.index(row, 1, kind).data().toString();
      found += kind.data().toString() + ": " + items.join(", ");
    }
    return found;
  }
  QModelIndex item(int row) const {
    const QAbstractItemModel& model = *part<QTreeView>("items").model();
    return model.index(row, 0, model.index(0, 0));
  }
  void choose(const QModelIndex& index) {
    part<QTreeView>("items").setCurrentIndex(index);
    ASSERT_TRUE(QTest::qWaitFor([this] { return part<DifferenceView>("difference").pair() != nullptr; }));
  }
  void press(const char* name) const { part<QPushButton>(name).click(); }

  GameFolder original;
  FileWriter files;
  FakePlaces places;
  DataComparison comparison{services};
  CompareWindow window{services, files, comparison, places};
};

TEST_F(CompareTest, ListsItemsByKindWithTheKeysOfChangedOnes) {
  EXPECT_EQ(rows(), QStringList("Weapon (3): Axe removed, Gun changed, Pike added"));
  EXPECT_EQ(part<QLabel>("state").text(), "3 of 3 items shown.");
  const QModelIndex key = item(1).model()->index(0, 0, item(1));
  QStringList columns;
  for (int column = 0; column < 4; ++column) columns += key.siblingAtColumn(column).data().toString();
  EXPECT_EQ(columns, QStringList({"Damage", "changed", "10", "12"}));
  EXPECT_EQ(key.parent(), item(1));
  EXPECT_EQ(item(1).siblingAtColumn(ComparisonModel::fileColumn).data(), "Weapon.ini, line 5");
}

TEST_F(CompareTest, OrderSpacingAndCommentsAreShownWhenTheyAreWanted) {
  part<QCheckBox>("text").click();
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(rows(), QStringList("Weapon (4): Axe removed, Bow changed, Gun changed, Pike added"));
  EXPECT_EQ(settings.GetSet("CompareText", ""), "True");
}

TEST_F(CompareTest, FilterAndStatesSayWhatIsShown) {
  const std::pair<const char*, QStringList> kCases[] = {
      {"gun", {"Weapon (1): Gun changed"}},
      {"damage", {"Weapon (1): Gun changed"}},
      {"armor.ini", {"Weapon (1): Pike added"}},
      {"weapon", {"Weapon (3): Axe removed, Gun changed, Pike added"}},
      {"nothing", {}},
  };
  for (const auto& [filter, expected] : kCases) {
    part<QLineEdit>("filter").setText(filter);
    EXPECT_EQ(rows(), expected) << filter;
  }
  part<QLineEdit>("filter").clear();
  EXPECT_EQ(part<QToolButton>("added").text(), "1 added");
  part<QToolButton>("added").click();
  part<QToolButton>("removed").click();
  EXPECT_EQ(rows(), QStringList("Weapon (1): Gun changed"));
}

TEST_F(CompareTest, AnItemIsShownAsTextSideBySideAndAtBothPlaces) {
  const QModelIndex gun = item(1);
  choose(gun);
  const auto& view = part<DifferenceView>("difference");
  EXPECT_EQ(view.pair()->texts.changes().size(), 1u);
  choose(gun.model()->index(0, 0, gun));
  EXPECT_EQ(view.presentLine(), 2u) << "of the item's own lines";
  press("inOriginal");
  press("inModification");
  ASSERT_EQ(places.places.size(), 2u);
  EXPECT_EQ(places.places[0], (FilePlace{"Data\\INI\\Weapon.ini", original.qpath(), 2}));
  EXPECT_EQ(places.places[1], (FilePlace{"Data\\INI\\Weapon.ini", {}, 6}));
  choose(item(0));
  EXPECT_FALSE(part<QPushButton>("inModification").isEnabled()) << "Axe is gone";
}

TEST_F(CompareTest, ADoubleClickLeadsToTheTextsAndAKeyFromThereToEachPlace) {
  auto& tree = part<QTreeView>("items");
  choose(item(0));
  const QPoint gun = tree.visualRect(item(1)).center();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, gun);
  QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, gun);
  const auto& view = part<DifferenceView>("difference");
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.presentLine() == 2; }));
  EXPECT_EQ(window.focusWidget(), view.focusProxy());
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const std::pair<Qt::Key, std::size_t> keys[] = {{Qt::Key_I, 1}, {Qt::Key_S, 2}};
  for (const auto& [key, opened] : keys) {
    QTest::keyClick(window.focusWidget(), key, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&, count = opened] { return places.places.size() == count; }));
  }
  EXPECT_EQ(places.places[0].archive, original.qpath());
  EXPECT_EQ(places.places[1], (FilePlace{"Data\\INI\\Weapon.ini", {}, 5}));
}

TEST_F(CompareTest, AllIsExportedInEveryFormat) {
  for (const ExportFormat& format : ExportFormats()) {
    const QString file = settingsFolder.filePath("notes" + QString::fromUtf8(format.ending.data()));
    EXPECT_TRUE(window.exportTo(file, format));
    std::ostringstream expected;
    format.write(expected, *comparison.result());
    std::ostringstream written;
    written << std::ifstream(file.toStdString(), std::ios::binary).rdbuf();
    EXPECT_EQ(written.str(), expected.str());
    EXPECT_NE(written.str().find("Pike"), std::string::npos) << format.name;
  }
  EXPECT_FALSE(window.exportTo(settingsFolder.filePath("no such folder/notes"), ExportFormats().front()));
  EXPECT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(part<QPushButton>("export").menu()->actions().size(), 4);
}

TEST_F(CompareTest, TheOriginalIsRememberedForTheGameFolder) {
  window.chooseOriginal(original.qpath() + "\\nowhere");
  EXPECT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(DataComparison(services).original(), original.qpath());
  window.chooseOriginal({});
  EXPECT_EQ(part<QLabel>("state").text(),
            "There is no archive (.big) in the game folder: choose the original.");
  folders.game += "\\other";
  comparison.setOriginal("Z:\\x.big");
  EXPECT_EQ(comparison.original(), "Z:\\x.big");
  folders.game.chop(6);
  EXPECT_EQ(comparison.original(), "");
}

TEST_F(CompareTest, WhatWasFoundStaysWhenAComparisonIsCancelled) {
  press("again");
  press("cancel");
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(rows(), QStringList("Weapon (3): Axe removed, Gun changed, Pike added"));
}

TEST_F(CompareTest, AFileThatIsGoneMeanwhileIsShownAsNoText) {
  std::filesystem::remove(game.native("Data/INI/Weapon.ini"));
  choose(item(1));
  EXPECT_EQ(part<DifferenceView>("difference").pair()->texts.present(), "");
}

}  // namespace
}  // namespace korvane
