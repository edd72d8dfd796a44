// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "app/CatalogueService.h"
#include "search/UsesWindow.h"
#include "support/TestDesk.h"

namespace korvane {
namespace {

class FakePlaces : public PlaceLauncher {
 public:
  void showPlace(const FilePlace& place) override { shown.push_back(place); }
  void showItem(const ItemPlace& item) override { shown.push_back(item.place); }
  void goBack() override {}
  void goForward() override {}
  std::vector<FilePlace> shown;
};

// The rows that are seen, those below others indented.
void AddShown(QStringList& rows, const QAbstractItemModel& model, const QModelIndex& parent, int depth) {
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex index = model.index(row, 0, parent);
    const QString text = index.siblingAtColumn(1).data().toString();
    rows += QString(depth, '-') + index.data().toString() + (text.isEmpty() ? "" : " | " + text);
    AddShown(rows, model, index, depth + 1);
  }
}

class UsesWindowTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.objects("Tanks.ini",
                 "Object Tank\n  WeaponSet\n    Weapon = PRIMARY Gun\n    Weapon = SECONDARY Lost ; gone\n"
                 "  End\nEnd\n"
                 "Object Jeep\n  WeaponSet\n    Weapon = PRIMARY gun\n  End\nEnd\n");
    game.ini("Weapon.ini", "Weapon Gun\n  PrimaryDamage = 5\nEnd\nWeapon GunPlus\nEnd\n");
    window.show();
  }

  template <typename Type>
  Type& part(const char* name) {
    return *window.findChild<Type*>(name);
  }
  bool waitForTitle(const QString& title) {
    const bool seen = QTest::qWaitFor([&] { return window.windowTitle() == title; });
    EXPECT_EQ(window.windowTitle().toStdString(), title.toStdString());
    return seen;
  }
  std::string rows() {
    QStringList shown;
    AddShown(shown, *part<QTreeView>("foundTree").model(), {}, 0);
    return shown.join('\n').toStdString();
  }
  // The row whose text is this.
  QModelIndex rowOf(const QString& text, int column = 0) {
    QAbstractItemModel& model = *part<QTreeView>("foundTree").model();
    const auto found = model.match(model.index(0, column), Qt::DisplayRole, text, 1,
                                   Qt::MatchStartsWith | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first().siblingAtColumn(0);
  }
  void chooseWith(Qt::Key key, const QModelIndex& row) {
    part<QTreeView>("foundTree").setCurrentIndex(row);
    QTest::keyClick(&part<QTreeView>("foundTree"), key);
  }
  void findText(const QString& text) {
    part<QLineEdit>("soughtText").setText(text);
    part<QPushButton>("findButton").click();
  }

  CatalogueService names{folders};
  FakePlaces places;
  UsesWindow window{settings, names, places};
};

TEST_F(UsesWindowTest, UsesStandBelowTheirBlocksAndEnterOpensThePlace) {
  window.showUses({"GUN", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'GUN'"));
  EXPECT_EQ(rows(),
            "Defined (1)\n"
            "-Weapon Gun, Weapon.ini (1)\n"
            "--line 1 | Weapon Gun\n"
            "Object (2)\n"
            "-Tank, Object\\Tanks.ini (1)\n"
            "--line 3 | Weapon = PRIMARY Gun\n"
            "-Jeep, Object\\Tanks.ini (1)\n"
            "--line 9 | Weapon = PRIMARY gun");
  chooseWith(Qt::Key_Return, rowOf("line 9"));
  ASSERT_EQ(places.shown.size(), 1U);
  EXPECT_EQ(places.shown[0], (FilePlace{"Data\\INI\\Object\\Tanks.ini", {}, 9, 22, 3}));
  ASSERT_TRUE(window.nameHere());
  EXPECT_EQ(window.nameHere()->name, "Jeep");
  chooseWith(Qt::Key_Return, rowOf("Tank,"));
  EXPECT_EQ(places.shown.size(), 1U) << "a branch is no place";
}

TEST_F(UsesWindowTest, ShowInFileOpensALineOrTheFirstOneOfABranch) {
  window.showUses({"Gun", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'Gun'"));
  chooseWith(Qt::Key_F6, rowOf("line 9"));
  part<QLineEdit>("filterField").setText("jeep");
  chooseWith(Qt::Key_F6, rowOf("Object (2)"));
  ASSERT_EQ(places.shown.size(), 2U);
  for (const FilePlace& place : places.shown) EXPECT_EQ(place.line, 9);
  part<QLineEdit>("filterField").setText("no such");
  part<QAction>("showInFile").trigger();
  EXPECT_EQ(places.shown.size(), 2U);
}

TEST_F(UsesWindowTest, TheFilterKeepsWhatItFitsAndCopyTakesWhatIsSeen) {
  window.showUses({"Gun", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'Gun'"));
  part<QLineEdit>("filterField").setText("jeep");
  part<QPushButton>("copyAsText").click();
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            "2 uses of 'Gun'\n"
            "Object (2)\n"
            "\tJeep, Object\\Tanks.ini (1)\n"
            "\t\tObject\\Tanks.ini, line 9: Weapon = PRIMARY gun\n");
}

TEST_F(UsesWindowTest, RefreshShowsWhatHasChangedInTheFilesMeanwhile) {
  window.showUses({"Gun", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'Gun'"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !names.isReading(); }));
  game.objects("More.ini", "Object Ship\n  WeaponSet\n    Weapon = PRIMARY Gun\n  End\nEnd\n");
  QTest::keyClick(&window, Qt::Key_F5);
  EXPECT_TRUE(waitForTitle("3 uses of 'Gun'"));
}

TEST_F(UsesWindowTest, NamesOfTheChosenBlockSayWhichAreDefinedNowhere) {
  window.showUses({"Gun", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'Gun'"));
  part<QTreeView>("foundTree").setCurrentIndex(rowOf("Tank,"));
  part<QPushButton>("namesUsed").click();
  ASSERT_TRUE(waitForTitle("2 names used by 'Object Tank'"));
  EXPECT_EQ(rows(),
            "Weapon (2)\n"
            "-Gun (1)\n"
            "--line 3 | Weapon = PRIMARY Gun\n"
            "-Lost, defined nowhere (1)\n"
            "--line 4 | Weapon = SECONDARY Lost ; gone");
  EXPECT_EQ(part<QLabel>("searchState").text(), "Defined nowhere: 1.");
}

TEST_F(UsesWindowTest, NothingIsCalledDefinedNowhereBeforeTheFurtherDataAreRead) {
  game.write("Original/Data/INI/More.ini", "Weapon Lost\r\nEnd\r\n");
  window.showUses({"Gun", GameStructure::get().space("Weapon")});
  ASSERT_TRUE(waitForTitle("2 uses of 'Gun'"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !names.isReading(); }));
  names.setFurtherData({game.qpath() + "\\Original"});
  window.showUses({"Lost", GameStructure::get().space("Weapon")});
  EXPECT_EQ(part<QLabel>("searchState").text(), "Reading the names...");
  ASSERT_TRUE(waitForTitle("1 use of 'Lost'"));
  EXPECT_EQ(part<QLabel>("searchState").text(), "");
  EXPECT_TRUE(rowOf("Weapon Lost, More.ini").isValid()) << rows();
}

TEST_F(UsesWindowTest, ANameThatNothingDefinesOrUsesIsSaidToBeSo) {
  window.showUses({"Nothing"});
  ASSERT_TRUE(waitForTitle("0 uses of 'Nothing'"));
  EXPECT_EQ(part<QLabel>("searchState").text(), "No file defines this name.");
  EXPECT_EQ(rows(), "");
}

TEST_F(UsesWindowTest, TextIsFoundAsTheOptionsSay) {
  struct Case {
    const char* text;
    bool expression;
    bool words;
    bool letterCase;
    const char* title;
  };
  constexpr Case kCases[] = {
      {"gun", false, false, false, "4 lines with 'gun'"},
      {"gun", false, true, false, "3 lines with 'gun'"},
      {"gun", false, false, true, "1 line with 'gun'"},
      {"g.n", false, false, false, "0 lines with 'g.n'"},
      {"g.n$", true, false, false, "3 lines with 'g.n$'"},
      {"Gun|Lost", true, true, true, "3 lines with 'Gun|Lost'"},
  };
  for (const Case& c : kCases) {
    part<QCheckBox>("asExpression").setChecked(c.expression);
    part<QCheckBox>("wholeWords").setChecked(c.words);
    part<QCheckBox>("letterCase").setChecked(c.letterCase);
    findText(c.text);
    EXPECT_TRUE(waitForTitle(c.title));
  }
  chooseWith(Qt::Key_Return, rowOf("line 4"));
  ASSERT_EQ(places.shown.size(), 1U);
  EXPECT_EQ(places.shown[0].column, 24);
  EXPECT_EQ(places.shown[0].length, 4);
}

TEST_F(UsesWindowTest, AnExpressionThatIsNoneKeepsWhatWasFound) {
  findText("Gun");
  ASSERT_TRUE(waitForTitle("4 lines with 'Gun'"));
  part<QCheckBox>("asExpression").setChecked(true);
  findText("(Gun");
  EXPECT_TRUE(part<QLabel>("searchState").text().startsWith("The expression is not well formed: "));
  EXPECT_TRUE(waitForTitle("4 lines with 'Gun'"));
}

TEST_F(UsesWindowTest, FilesThatCannotBeReadAsTextAreNamed) {
  game.write("Data/INI/Broken.ini", std::string_view("Gun\0Gun\r\n", 9));
  findText("Gun");
  ASSERT_TRUE(waitForTitle("4 lines with 'Gun'"));
  EXPECT_EQ(part<QLabel>("searchState").text(), "Files that cannot be read: 1.");
  EXPECT_TRUE(part<QLabel>("searchState").toolTip().contains("Broken.ini"));
}

}  // namespace
}  // namespace korvane
