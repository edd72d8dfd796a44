// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <chrono>
#include <filesystem>
#include <utility>

#include "app/CatalogueService.h"
#include "app/FurtherData.h"
#include "app/Places.h"
#include "problems/FurtherDataDialog.h"
#include "problems/ProblemsWindow.h"
#include "stock/StockFiles.h"
#include "support/TestDesk.h"

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

// Keeps what a plan names for the file as it is on the disk.
class PlanningLauncher : public FakeLauncher {
 public:
  explicit PlanningLauncher(const GameFolder& game) : game_(game) {}

  bool editInManualEditor(const QString& file, const EditPlan& plan) override {
    calls += "edit " + file.section('\\', -1);
    edits = plan(text.empty() ? game_.read("Data/INI/" + file.section('\\', -1).toStdString()) : text);
    return !edits.empty();
  }

  std::string text;  // in place of the file's
  std::vector<TextEdit> edits;

 private:
  const GameFolder& game_;
};

const std::string kGuns =
    "Weapon Gun\n  FireFX = FX_Bnag\n  PrimryDamage = 1\nEnd\nWeapon Bow\n  FireFX = FX_Bnag\nEnd\n";

// Two missing names and a misspelt key in Weapon.ini, an End too many in Armor.ini.
class ProblemsTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.ini("FXList.ini", "FXList FX_Bang\nEnd\n");
    game.ini("Weapon.ini", kGuns);
    game.ini("Armor.ini", "Armor Steel\nEnd\nEnd\n");
    window->show();
    ASSERT_TRUE(waitForCheck());
  }

  std::unique_ptr<ProblemsWindow> makeWindow() {
    return std::make_unique<ProblemsWindow>(services, names, check, places, launcher);
  }
  bool waitForCheck() {
    return QTest::qWaitFor([this] { return check.result() != nullptr && !check.isRunning(); });
  }
  template <typename Widget>
  Widget& part(const char* name) const {
    return *window->findChild<Widget*>(name);
  }
  QTreeView& tree() const { return part<QTreeView>("findings"); }

  // "Weapon.ini (3): 2 3 6", a text for each group.
  QStringList rows() const {
    QStringList found;
    const QAbstractItemModel& model = *tree().model();
    for (int i = 0; i < model.rowCount(); ++i) {
      const QModelIndex group = model.index(i, 0);
      found += group.data().toString().section(':', 0, 0) + ':';
      for (int row = 0; row < model.rowCount(group); ++row) {
        found.last() += ' ' + model.index(row, ProblemsModel::line, group).data().toString();
      }
    }
    return found;
  }
  void select(int group, int row) { choose(tree().model()->index(row, 0, tree().model()->index(group, 0))); }
  // Whatever key a test has left pressed.
  void choose(const QModelIndex& index) {
    tree().selectionModel()->setCurrentIndex(index,
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  QString selectedLine() const {
    return tree().currentIndex().siblingAtColumn(ProblemsModel::line).data().toString();
  }

  CatalogueService names{folders};
  DataCheck check{names};
  FakePlaces places;
  PlanningLauncher launcher{game};
  std::unique_ptr<ProblemsWindow> window = makeWindow();
};

TEST_F(ProblemsTest, GroupsByFileOrByCodeAndRemembersWhich) {
  EXPECT_EQ(rows(), QStringList({"Armor.ini (1): 3", "Weapon.ini (3): 2 3 6"}));
  part<QComboBox>("grouping").setCurrentIndex(1);
  const QStringList byCode = {"key-typo: 3", "missing-name: 2 6", "stray-end: 3"};
  EXPECT_EQ(rows(), byCode);
  window = makeWindow();
  EXPECT_EQ(rows(), byCode);
}

TEST_F(ProblemsTest, FilterAndLevelsSayWhatIsShown) {
  struct Case {
    const char* filter;
    QStringList rows;
  };
  const Case cases[] = {
      {"fx_bnag", {"Weapon.ini (2): 2 6"}},
      {"stray-end", {"Armor.ini (1): 3"}},
      {"ini\\weapon", {"Weapon.ini (3): 2 3 6"}},
      {"no such text", {}},
      {"", {"Armor.ini (1): 3", "Weapon.ini (3): 2 3 6"}},
  };
  for (const Case& each : cases) {
    part<QLineEdit>("filter").setText(each.filter);
    EXPECT_EQ(rows(), each.rows) << each.filter;
  }
  EXPECT_EQ(part<QToolButton>("errors").text(), "4 errors");
  EXPECT_EQ(part<QToolButton>("warnings").text(), "0 warnings");
  EXPECT_EQ(part<QToolButton>("notes").text(), "Notes");
  part<QToolButton>("errors").click();
  EXPECT_EQ(rows(), QStringList());
}

TEST_F(ProblemsTest, NotesAreLookedForWhenTheyAreAskedFor) {
  EXPECT_FALSE(check.result()->withNotes);
  part<QToolButton>("notes").click();
  ASSERT_TRUE(QTest::qWaitFor([this] { return check.result()->withNotes; }));
  EXPECT_GT(check.result()->count(Level::note), 0);
  EXPECT_NE(part<QToolButton>("notes").text(), "Notes");
  EXPECT_TRUE(rows().join(' ').contains("FXList.ini")) << "nothing names FX_Bang";
  window = makeWindow();
  window->show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !check.result()->withNotes; })) << "a new window shows none";
}

TEST_F(ProblemsTest, EnterOpensThePlaceWithItsLength) {
  select(1, 1);
  QTest::keyClick(&tree(), Qt::Key_Return);
  ASSERT_EQ(places.places.size(), 1U);
  EXPECT_EQ(places.places[0], (FilePlace{"Data\\INI\\Weapon.ini", {}, 3, 3, 12}));
  choose(tree().model()->index(0, 0));
  QTest::keyClick(&tree(), Qt::Key_Return);
  EXPECT_EQ(places.places.size(), 1U) << "a group is no place";
  QTest::keyClick(&tree(), Qt::Key_F6);
  select(1, 1);
  QTest::keyClick(&tree(), Qt::Key_F6);
  ASSERT_EQ(places.places.size(), 3U);
  EXPECT_EQ(places.places[1].line, 3) << "of a group the first finding";
  EXPECT_EQ(places.places[2], places.places[0]);
}

TEST_F(ProblemsTest, CopiesASelectedGroupWithAllOfItsFindings) {
  choose(tree().model()->index(1, 0));
  part<QPushButton>("copyButton").click();
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_TRUE(lines[1].startsWith("Data/INI/Weapon.ini:3:3: error: ")) << lines[1].toStdString();
  EXPECT_TRUE(lines[1].endsWith("[key-typo]"));
}

TEST_F(ProblemsTest, ChecksAgainWhenAFileHasChangedAndKeepsTheSelectedFinding) {
  select(1, 2);
  EXPECT_EQ(selectedLine(), "6");
  game.ini("Weapon.ini", "; a line more\n" + kGuns);
  ASSERT_TRUE(QTest::qWaitFor([this] { return selectedLine() == "7"; }, 15'000));
  EXPECT_EQ(rows().last(), "Weapon.ini (3): 3 4 7");
}

TEST_F(ProblemsTest, TheNeighbourIsSelectedWhenAFindingIsMended) {
  select(1, 1);
  game.ini("Weapon.ini", "Weapon Gun\n  FireFX = FX_Bnag\nEnd\nWeapon Bow\n  FireFX = FX_Bnag\nEnd\n");
  check.start();
  ASSERT_TRUE(QTest::qWaitFor([this] { return selectedLine() == "5"; }, 15'000))
      << selectedLine().toStdString();
  game.ini("Weapon.ini", "Weapon Gun\n  FireFX = FX_Bnag\nEnd\n");
  check.start();
  ASSERT_TRUE(QTest::qWaitFor([this] { return selectedLine() == "2"; }, 15'000))
      << selectedLine().toStdString();
}

TEST_F(ProblemsTest, AFindingIsIgnoredOrMendedInTheManualEditor) {
  struct Case {
    const char* what;
    Qt::Key key;
    int row;
    std::vector<TextEdit> edits;
  };
  const Case cases[] = {
      {"ignored", Qt::Key_I, 1, {{3, 19, 0, " ; korvane: ignore key-typo"}}},
      {"mended", Qt::Key_Period, 1, {{3, 3, 12, "PrimaryDamage"}}},
      {"mended name", Qt::Key_Period, 2, {{6, 12, 7, "FX_Bang"}}},
  };
  for (const Case& each : cases) {
    select(1, each.row);
    QTest::keyClick(&tree(), each.key, Qt::ControlModifier);
    EXPECT_EQ(launcher.edits, each.edits) << each.what;
    EXPECT_EQ(launcher.takeCalls(), QStringList("edit Weapon.ini"));
  }
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"), GameFolder::CrLf(kGuns)) << "nothing is saved";
}

TEST_F(ProblemsTest, WhatIsTypedInTheManualEditorIsReckonedWith) {
  launcher.text = "; a line\n" + kGuns;
  select(1, 1);
  part<QPushButton>("applyButton").click();
  EXPECT_EQ(launcher.edits, (std::vector<TextEdit>{{4, 3, 12, "PrimaryDamage"}}));
  launcher.text = "Weapon Gun\nEnd\n";
  part<QPushButton>("ignoreButton").click();
  EXPECT_TRUE(launcher.edits.empty());
  EXPECT_TRUE(part<QLabel>("state").text().startsWith("Nothing was changed"));
}

TEST_F(ProblemsTest, AGroupGoesInOneAndOnlyWhatCanBeDoneIsOffered) {
  select(0, 0);
  EXPECT_FALSE(part<QPushButton>("applyButton").isEnabled()) << "an End too many has no suggestion";
  EXPECT_TRUE(part<QPushButton>("ignoreButton").isEnabled());
  choose(tree().model()->index(1, 0));
  part<QPushButton>("applyButton").click();
  EXPECT_EQ(launcher.edits.size(), 3U);
  tree().clearSelection();
  EXPECT_FALSE(part<QPushButton>("ignoreButton").isEnabled());
}

TEST_F(ProblemsTest, AnUnusedItemIsIgnoredWhereItIsDefined) {
  part<QToolButton>("notes").click();
  ASSERT_TRUE(QTest::qWaitFor([this] { return check.result()->withNotes && !check.isRunning(); }));
  part<QLineEdit>("filter").setText("FX_Bang is named nowhere");
  launcher.text = "; a line\r\n" + GameFolder::CrLf("FXList FX_Bang\nEnd\n");
  select(0, 0);
  part<QPushButton>("ignoreButton").click();
  EXPECT_EQ(launcher.edits, (std::vector<TextEdit>{{2, 15, 0, " ; korvane: ignore unused"}}));
}

TEST_F(ProblemsTest, FurtherDataCountAndAreRememberedForTheGameFolder) {
  game.write("Original/Data/INI/Effects.ini", "FXList FX_Bnag\r\nEnd\r\n");
  const QString original = game.qpath() + "\\Original";
  part<QPushButton>("furtherData").click();
  auto* dialog = window->findChild<FurtherDataDialog*>();
  ASSERT_NE(dialog, nullptr);
  dialog->add(game.qpath() + "\\Data");
  EXPECT_EQ(messages.shown.size(), 1U) << "a folder without INI files of the game";
  dialog->add(original);
  dialog->add(original);
  EXPECT_EQ(dialog->paths(), QStringList(original));
  dialog->accept();
  ASSERT_TRUE(QTest::qWaitFor([this] { return rows().last() == "Weapon.ini (1): 3"; }, 15'000))
      << rows().join('\n').toStdString();
  EXPECT_EQ(FurtherDataOf(settings, folders.game), QStringList(original));
  EXPECT_TRUE(FurtherDataOf(settings, "C:\\Other").isEmpty());
  SaveFurtherData(settings, "C:\\Other", {"D:\\a.big", "D:\\b.big"});
  EXPECT_EQ(FurtherDataOf(settings, folders.game), QStringList(original));
  EXPECT_EQ(FurtherDataOf(settings, "c:\\other"), QStringList({"D:\\a.big", "D:\\b.big"}));
}

TEST_F(ProblemsTest, FurtherDataAreChosenInDialogsThatHoldUpNothing) {
  game.write("Original/Data/INI/Effects.ini", "FXList FX_Bnag\r\nEnd\r\n");
  game.write("More.big", ArchiveBytes({{"Data\\INI\\More.ini", "FXList FX_Boom\r\nEnd\r\n"}}));
  part<QPushButton>("furtherData").click();
  auto* dialog = window->findChild<FurtherDataDialog*>();
  ASSERT_NE(dialog, nullptr);
  for (const auto& [button, chosen] :
       {std::pair("addFolder", "Original"), std::pair("addArchive", "More.big")}) {
    dialog->findChild<QPushButton*>(button)->click();
    auto* chooser = dialog->findChild<QFileDialog*>();
    ASSERT_NE(chooser, nullptr) << button;
    EXPECT_TRUE(chooser->testOption(QFileDialog::ReadOnly)) << "the game's files are not renamed there";
    Q_EMIT chooser->filesSelected({QString::fromStdString(game.native(chosen).generic_string())});
    chooser->close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog->findChild<QFileDialog*>() == nullptr; }));
  }
  EXPECT_EQ(dialog->paths(), QStringList({game.qpath() + "\\Original", game.qpath() + "\\More.big"}));
  dialog->findChild<QListWidget*>()->setCurrentRow(0);
  dialog->findChild<QPushButton*>("remove")->click();
  EXPECT_EQ(dialog->paths(), QStringList(game.qpath() + "\\More.big"));
}

TEST_F(ProblemsTest, ObjectsWithErrorsAreNamedWithWhatIsWrong) {
  game.objects("FactionUnit.ini",
               "Object Tank\n  Draw = W3DTankDraw Tag_1\n  End\n  Draw = W3DTankDraw Tag_1\n  End\nEnd\n");
  check.start();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !check.result()->objects.empty(); }, 15'000));
  const ObjectErrors& object = check.result()->objects.front();
  EXPECT_EQ(object.path, "Object\\FactionUnit.ini");
  EXPECT_EQ(object.name, "Tank");
  EXPECT_TRUE(object.texts.contains("Tag_1")) << object.texts.toStdString();
}

TEST_F(ProblemsTest, TabGoesThroughTheWindowAsItIsRead) {
  select(0, 0);
  QStringList order;
  part<QLineEdit>("filter").setFocus();
  for (int i = 0; i < 9; ++i) {
    order += window->focusWidget()->objectName();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order, QStringList({"filter", "errors", "warnings", "notes", "grouping", "furtherData",
                                "findings", "again", "copyButton"}))
      << order.join(' ').toStdString();
}

TEST_F(ProblemsTest, ASelectionThatTheFilterHidesComesBack) {
  select(1, 1);
  part<QLineEdit>("filter").setText("stray-end");
  part<QLineEdit>("filter").clear();
  EXPECT_EQ(tree().currentIndex().parent().row(), 1);
  EXPECT_EQ(selectedLine(), "3");
}

TEST_F(ProblemsTest, AnUnchangedFolderIsNotCheckedAgainByItself) {
  // Files that were written just now are read anew, whatever their time says.
  const auto hourAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  for (const char* name : {"FXList.ini", "Weapon.ini", "Armor.ini"}) {
    std::filesystem::last_write_time(game.native(std::string("Data/INI/") + name), hourAgo);
  }
  check.start();
  ASSERT_TRUE(waitForCheck());
  const DataCheck::ResultPtr before = check.result();
  names.refresh();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !names.isReading() && !check.isRunning(); }));
  EXPECT_EQ(check.result(), before);
}

TEST_F(ProblemsTest, ACancelledCheckKeepsWhatWasFoundBefore) {
  const DataCheck::ResultPtr before = check.result();
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  part<QPushButton>("again").click();
  EXPECT_TRUE(part<QPushButton>("cancel").isVisible());
  part<QPushButton>("cancel").click();
  EXPECT_FALSE(check.isRunning());
  ASSERT_TRUE(QTest::qWaitFor([this] { return !names.isReading(); }));
  EXPECT_FALSE(check.isRunning());
  EXPECT_EQ(check.result(), before);
  EXPECT_TRUE(part<QLabel>("state").text().startsWith("Cancelled"))
      << part<QLabel>("state").text().toStdString();
  part<QPushButton>("again").click();
  ASSERT_TRUE(waitForCheck());
  EXPECT_EQ(rows(), QStringList({"Armor.ini (1): 3"}));
}

TEST_F(ProblemsTest, AWishDuringACheckIsMetAfterIt) {
  window->close();
  check.start();
  Q_EMIT names.changed();
  ASSERT_TRUE(check.isRunning());
  check.setNotes(true);
  check.start();
  Q_EMIT names.changed();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !check.isRunning() && !names.isReading(); }));
  EXPECT_TRUE(check.result()->withNotes);
}

TEST_F(ProblemsTest, ClosingInTheMiddleOfACheckEndsNothingBadly) {
  check.start();
  window->close();
  window.reset();
  EXPECT_TRUE(waitForCheck());
}

}  // namespace
}  // namespace korvane
