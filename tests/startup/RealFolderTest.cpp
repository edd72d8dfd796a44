// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "mainwindow/FrmEdit.h"
#include "startup/Program.h"
#include "stock/StockTable.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

// The whole program on game folders as people have them: objects in many files, line ends of all kinds.
class RealFolder : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    qputenv("XDG_DATA_HOME", own.native("home").string().c_str());
    folders.program = own.qpath();
    StockTable(own.native("Data")).commit();
    game.objects("FactionUnit.ini", "Object GLABike\n  MaxHealth = 90\nEnd\n");
    game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
    settings.saveGameFolder(game.qpath());
  }
  void start() {
    program = std::make_unique<Program>(services, folders, QString());
    program->StartProgram();
  }

  template <typename Widget>
  Widget& get(const char* name) const {
    auto* found = program->mainWindow().findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  QString panel(int number) const { return get<QLabel>(qPrintable(QString("Panel%1").arg(number))).text(); }

  QModelIndex node(const QString& text) const {
    const QAbstractItemModel& model = program->mainWindow().objects();
    return model.match(model.index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
  }
  void click(const QString& text) const {
    auto& tree = get<QTreeView>("TVMenu");
    tree.scrollTo(node(text));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(node(text)).center());
  }

  GameFolder own;
  std::unique_ptr<Program> program;
};

TEST_F(RealFolder, AnObjectOfAnotherFileIsShownAndEditedLikeAnyOther) {
  game.objects("Units/Tanks.ini",
               "Object Crusader\n  MaxHealth = 480\n  Locomotor = SET_NORMAL Tracks\nEnd\n"
               "Object Wreck\nEnd\n");
  game.ini("Locomotor.ini", "Locomotor Tracks\n  Surfaces = GROUND\nEnd\n");
  game.ini("Crate.ini", "Object Crate\n  MaxHealth = 1\nEnd\n");
  start();
  click("Crusader");
  EXPECT_EQ(get<QLineEdit>("MHealth").text(), "480");
  EXPECT_EQ(get<QLineEdit>("HS_TextBox0").displayText(), "GROUND");
  EXPECT_EQ(panel(1), "Other Files\\Units\\Tanks.ini\\Crusader");
  EXPECT_EQ(panel(2), "Object\\Units\\Tanks.ini");
  EXPECT_EQ(panel(3), "There are 0 items in this catagory.");
  auto& editFile = get<QPushButton>("CmdME_FINI");
  EXPECT_TRUE(QTest::qWaitFor([&] { return editFile.text() == "Manual Edit Object\\Units\\Tanks.ini"; }));
  click("Crate");
  EXPECT_EQ(get<QLineEdit>("MHealth").text(), "1");
  EXPECT_EQ(panel(2), "Crate.ini");
  editFile.click();
  QWidget* editor = VisibleWindow("FrmManEdit");
  ASSERT_NE(editor, nullptr);
  auto* path = editor->findChild<QLabel*>("Panel5");
  EXPECT_TRUE(QTest::qWaitFor([&] { return path->text() == game.qpath() + "\\Data\\INI\\Crate.ini"; }));
  std::filesystem::remove(game.native("Data/INI/Object/Units/Tanks.ini"));
  click("Wreck");
  EXPECT_EQ(panel(2), "Object\\Units\\Tanks.ini  (Error: File does not exist)");
  click("Units\\Tanks.ini");
  EXPECT_EQ(panel(3), "There are 2 items in this catagory.");
}

}  // namespace
}  // namespace korvane
