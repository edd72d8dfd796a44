// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "controls/NoticeBar.h"
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
  bool isKept(const std::string& bytes) const {
    QDirIterator at(QString::fromStdString(own.native("home").string()), QDir::Files,
                    QDirIterator::Subdirectories);
    while (at.hasNext()) {
      QFile file(at.next());
      if (file.open(QIODevice::ReadOnly) && file.readAll().toStdString() == bytes) return true;
    }
    return false;
  }
  QString panel(int number) const { return get<QLabel>(qPrintable(QString("Panel%1").arg(number))).text(); }

  // What the bar says about line ends; it says nothing else of these folders.
  QStringList notices() const {
    return program->mainWindow().findChild<NoticeBar*>()->sentences().filter("line end");
  }
  void pressNotice(const QString& caption) const {
    for (auto* button : program->mainWindow().findChildren<QPushButton*>("NoticeButton")) {
      if (button->text() == caption) button->click();
    }
    QApplication::processEvents();
  }

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

TEST_F(RealFolder, ValuesOfALongerNameAreToldAndTheSentenceLeadsToTheObjectItself) {
  game.objects("Units/Tanks.ini",
               "Object TankBarrel\n  MaxHealth = 1\nEnd\nObject Tank\n  MaxHealth = 480\nEnd\n");
  start();
  click("Tank");
  EXPECT_EQ(get<QLineEdit>("MHealth").text(), "1");
  const auto& bar = get<NoticeBar>("NoticeBar");
  ASSERT_TRUE(QTest::qWaitFor([&bar] {
    return bar.sentences().contains("These are the values of TankBarrel in line 1; Tank stands in line 4.");
  }));
  auto* sentence = bar.findChildren<QLabel*>("Notice").last();
  Q_EMIT sentence->linkActivated(sentence->text().section("href=\"", 2).section('"', 0, 0));
  ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("FrmManEdit") != nullptr; }));
  auto* line = VisibleWindow("FrmManEdit")->findChild<QLabel*>("Panel1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return line->text() == "Line 4 of 7"; })) << qPrintable(line->text());
  click("TankBarrel");
  EXPECT_TRUE(QTest::qWaitFor([&bar] { return bar.sentences().filter("values of").isEmpty(); }));
}

TEST_F(RealFolder, UnixLineEndsAreToldConvertedAndGoneAfterANewStart) {
  const std::string lf = "Object Crusader\n  MaxHealth = 480\nEnd\n";
  game.write("Data/INI/Object/FactionUnit.ini", "; units\n" + lf);
  game.write("Data/INI/Object/Units/Tanks.ini", "; tanks\n" + lf);
  game.write("Data/INI/Armor.ini", "Armor A\r\nEnd\r\nArmor B\nEnd\r\n");
  game.write("Data/INI/Particles.ini", "ParticleSystem Smoke\nEnd\n");  // read by nothing here
  start();
  EXPECT_EQ(notices(),
            QStringList("2 files have Unix line ends and are read as one line each; 1 file has them "
                        "in 1 place, where lines are read as one."));
  EXPECT_FALSE(node("Crusader").isValid());

  messages.answer = false;
  pressNotice("Convert");
  EXPECT_EQ(game.read("Data/INI/Object/FactionUnit.ini"), "; units\n" + lf);
  EXPECT_TRUE(messages.shown.back().text.endsWith(
      "\r\nObject\\FactionUnit.ini\r\nArmor.ini\r\nObject\\Units\\Tanks.ini"));

  messages.answer = true;
  pressNotice("Convert");
  EXPECT_EQ(game.read("Data/INI/Object/FactionUnit.ini"), GameFolder::CrLf("; units\n" + lf));
  EXPECT_EQ(game.read("Data/INI/Object/Units/Tanks.ini"), GameFolder::CrLf("; tanks\n" + lf));
  EXPECT_EQ(game.read("Data/INI/Armor.ini"), "Armor A\r\nEnd\r\nArmor B\r\nEnd\r\n");
  EXPECT_EQ(game.read("Data/INI/Particles.ini"), "ParticleSystem Smoke\nEnd\n");
  EXPECT_TRUE(isKept("; tanks\n" + lf));
  EXPECT_EQ(notices(),
            QStringList("The line ends are mended. The tree shows all objects after a new start."));

  process.canStart = false;
  pressNotice("Start again");
  EXPECT_EQ(process.ends, 0);
  process.canStart = true;
  pressNotice("Start again");
  EXPECT_EQ(process.starts, 2);
  EXPECT_EQ(process.ends, 1);
  program.reset();
  start();
  EXPECT_TRUE(node("Crusader").isValid());
  EXPECT_TRUE(notices().isEmpty());
}

TEST_F(RealFolder, AFileWithUnsavedTextIsLeftOutOfTheConversion) {
  game.write("Data/INI/Weapon.ini", "Weapon Gun\nEnd\n");
  game.write("Data/INI/Armor.ini", "Armor A\nEnd\n");
  start();
  program->showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\Weapon.ini"});
  QWidget* editor = VisibleWindow("FrmManEdit");
  auto* text = editor->findChild<QWidget*>("TxtManEdit")->findChild<QAbstractScrollArea*>();
  QTest::qWait(50);
  QTest::keyClick(text, Qt::Key_X);
  pressNotice("Convert");
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"), "Weapon Gun\nEnd\n");
  EXPECT_EQ(game.read("Data/INI/Armor.ini"), "Armor A\r\nEnd\r\n");
  const QStringList said = program->mainWindow().findChild<NoticeBar*>()->sentences();
  EXPECT_TRUE(said.contains("1 file has Unix line ends and is read as one line."));
  EXPECT_TRUE(said.contains("Weapon.ini has unsaved text in the manual editor and is left out."));
  pressNotice("Start again");
  EXPECT_EQ(process.starts, 1);
  EXPECT_TRUE(isKept("xWeapon Gun\r\nEnd\r\n"));
}

TEST_F(RealFolder, WhatAnotherProgramMendsIsNoLongerTold) {
  game.write("Data/INI/Weapon.ini", "Weapon Gun\nEnd\n");
  start();
  EXPECT_EQ(notices(), QStringList("1 file has Unix line ends and is read as one line."));
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  QEvent back(QEvent::WindowActivate);
  QApplication::sendEvent(&program->mainWindow(), &back);
  EXPECT_EQ(notices(),
            QStringList("The line ends are mended. The tree shows all objects after a new start."));
}

}  // namespace
}  // namespace korvane
