// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeView>

#include "startup/FileDesk.h"

namespace korvane {
namespace {

// From the fields of the main window to the lines of the files.
class EditInFile : public FileDesk {};

TEST_F(EditInFile, APriceIsChangedInTwoClicksAndSaved) {
  type("TxtCost", "1000");
  EXPECT_EQ(notices().last(), "What is typed here is not saved. Edit in file");
  editInFile();
  EXPECT_EQ(edited(), with("900", "1000"));
  EXPECT_EQ(text().selectedText(), "1000");
  EXPECT_EQ(text().cursorLine(), 5);
  EXPECT_EQ(game.read(kFile), GameFolder::CrLf(kUnits));  // until it is saved
  QTest::keyClick(text().focusProxy(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(game.read(kFile), with("900", "1000"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return notices().isEmpty(); }));
  EXPECT_EQ(field("TxtCost").text(), "1000");
}

TEST_F(EditInFile, SeveralFieldsGoTogetherIntoUnsavedTextAsOneStepToUndo) {
  program.showManualEditor({game.qpath() + "\\Data\\INI\\Object\\FactionUnit.ini"});
  waitForEditor();
  text().replaceSelection("; typed\r\n");
  const std::string before = edited();
  type("TxtCost", "1");
  type("TxtBS", "2");
  type("TxtSCR", "3");
  editInFile();
  std::string after = before;
  for (const auto& [old, fresh] : {std::pair("900", "1"), std::pair("8.0", "2"),
                                   std::pair("Range = 90", "Range = 90\r\n  ShroudClearingRange = 3")})
    after.replace(after.find(old), std::string(old).size(), fresh);
  EXPECT_EQ(edited(), after);
  undo();
  EXPECT_EQ(edited(), before);
}

TEST_F(EditInFile, WhatCannotBeEditedIsSaidAndNothingIsOpened) {
  type("TxtCost", "1000");
  type("TxtVisRange", "7");
  follow("Edit in file");
  EXPECT_EQ(notices().last(),
            "Vision Range cannot be edited in the file: it shows 2 lines run together (line 8).");
  EXPECT_EQ(VisibleWindow("FrmManEdit"), nullptr);
  show("Jeep");
  type("TxtCost", "3");
  follow("Edit in file");
  EXPECT_EQ(
      notices().last(),
      "Cost cannot be edited in the file: its value is that of a block with a longer name, which stands "
      "first (line 2).");
  EXPECT_EQ(VisibleWindow("FrmManEdit"), nullptr);
}

TEST_F(EditInFile, ALocomotorIsEditedWhenTheUserHasHeardWhoElseNamesIt) {
  type("HS_TextBox1", "55");
  messages.answers = {"Cancel"};
  follow("Edit in file");
  EXPECT_EQ(VisibleWindow("FrmManEdit"), nullptr);
  ASSERT_EQ(messages.asked.size(), 1U);
  EXPECT_EQ(messages.asked[0].text,
            "2 objects name the locomotor Tracks. The change is one for all that use it.");
  messages.answers = {"Edit in file"};
  editInFile();
  EXPECT_TRUE(edited().find("  Speed = 55 ; fast\r\n") != std::string::npos) << edited();
}

TEST_F(EditInFile, AValueThatDoesNotFitItsMaskStays) {
  type("HS_TextBox3", "30");
  follow("Edit in file");
  EXPECT_EQ(notices().last(),
            "Turn Rate cannot be edited in the file: the value in the file does not fit the field's mask.");
}

TEST_F(EditInFile, CellsOfATableAreEditedInTheirFile) {
  struct Case {
    TableEditorId editor;
    const char* file;
    const char* lines;
    int row;
    const char* typed;
    const char* after;
    bool asks;
  };
  const Case kCases[] = {
      {TableEditorId::armours, "Armor.ini", "Armor A\n  Armor = FLAME 5%\n  Armor = FLAME 6% ; b\nEnd\n", 1,
       "7%", "Armor A\n  Armor = FLAME 5%\n  Armor = FLAME 7% ; b\nEnd\n", true},
      {TableEditorId::commandSets, "CommandSet.ini", "CommandSet A\n  1 = X\nEnd\n", 1, "Y",
       "CommandSet A\n  1 = X\n  2 = Y\nEnd\n", false},
      {TableEditorId::commandButtons, "CommandButton.ini", "CommandButton A\n  Command = STOP\nEnd\n", 0,
       "GUARD", "CommandButton A\n  Command = GUARD\nEnd\n", false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.file);
    game.ini(c.file, c.lines);
    ASSERT_TRUE(program.showEntry(c.editor, "A"));
    auto* editor = FirstWindow(WindowOf(c.editor), [](const QWidget&) { return true; });
    QAbstractItemModel& model = *editor->findChild<InPlaceTable*>("LVEdit")->model();
    ASSERT_TRUE(model.setData(model.index(c.row, 1), c.typed));
    messages.asked.clear();
    messages.answers = {"Edit in file"};
    followIn(*editor, "Edit in file");
    waitForEditor();
    EXPECT_EQ(messages.asked.size(), c.asks ? 1U : 0U);
    EXPECT_EQ(edited(), GameFolder::CrLf(c.after));
    EXPECT_EQ(text().selectedText(), c.typed);
    save();
  }
}

TEST_F(EditInFile, AnInsertedRowMovesNoOtherAndIsNotWritten) {
  game.ini("Armor.ini", "Armor A\n  Armor = FLAME 5%\n  Armor = FLAME 6%\nEnd\n");
  ASSERT_TRUE(program.showEntry(TableEditorId::armours, "A"));
  QWidget& editor = *WindowNamed("FrmArmour");
  auto& rows = *editor.findChild<InPlaceTable*>("LVEdit");
  rows.addRow("FLAME");
  ASSERT_FALSE(rows.model()->setData(rows.model()->index(2, 1), "9%"));
  ASSERT_TRUE(rows.model()->setData(rows.model()->index(1, 1), "7%"));
  messages.answers = {"Edit in file"};
  followIn(editor, "Edit in file");
  waitForEditor();
  EXPECT_EQ(edited(), GameFolder::CrLf("Armor A\n  Armor = FLAME 5%\n  Armor = FLAME 7%\nEnd\n"));
  EXPECT_EQ(editor.findChild<NoticeBar*>("NoticeBar")->sentences().last(),
            "A row that was inserted has no value, and no line in the file.");
}

// Each is refused with its reason, and nothing is opened or changed.
TEST_F(EditInFile, WhatNoLineShowsForSureIsRefused) {
  struct Case {
    const char* object;  // that a Tank is made of
    const char* field;
    const char* typed;
    const char* reason;
  };
  const Case kCases[] = {
      {"  BuildCost = 1\n  BuildCost = 2\n", "TxtCost", "5",
       "Cost cannot be edited in the file: it shows 2 lines run together (line 2)."},
      {"  BuildCost = \"a b\"\n", "TxtCost", "5",
       "Cost cannot be edited in the file: only a part of the value in its line is shown (line 2)."},
      {"  WeaponSet\n    Weapon = PRIMARY A\n    End\n  WeaponSet\n    Weapon = PRIMARY B\n  End\n",
       "PWeapon", "C",
       "Primary Weapon cannot be edited in the file: its weapon set shares lines with the next (line 2)."},
      {"  Locomotor = SET_NORMAL Slow\n", "HS_TextBox1", "abc",
       "Top Speed cannot be edited in the file: what is typed does not fit the field's mask."},
      {"  BuildCost = 1\n", "TxtCost", "1 2",
       "Cost cannot be edited in the file: what is typed is not one word of a line."},
      {"  BuildCost = 1\n", "TxtCost", "",
       "Cost cannot be edited in the file: it is empty; a line is deleted in the manual editor."},
      {"  BuildCost = 1\n", "TxtCost", "\xE2\x82\xAC\xC4\xB1",
       "Cost cannot be edited in the file: the game's files have no byte for a character of it."},
  };
  game.ini("Locomotor.ini", "Locomotor Slow\n  Speed = 22.5\nEnd\n");
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.reason);
    const std::string file = GameFolder::CrLf(std::string("Object Tank\n") + c.object + "End\n");
    game.write(kFile, file);
    show("Tank");
    auto* list = window.findChild<QComboBox*>(c.field);
    QLineEdit& line = list == nullptr ? field(c.field) : *list->lineEdit();
    line.setText(QString::fromUtf8(c.typed));
    follow("Edit in file");
    EXPECT_EQ(notices().last(), c.reason);
    EXPECT_EQ(VisibleWindow("FrmManEdit"), nullptr);
    EXPECT_TRUE(messages.asked.empty());
    EXPECT_EQ(game.read(kFile), file);
  }
}

TEST_F(EditInFile, AMisspeltNameIsFoundAndMendedWithTheKeyboard) {
  game.ini("FXList.ini", "FXList FX_Bang\nEnd\n");
  game.ini("Weapon.ini", "Weapon Gun\n  ClipSize = 2\n  FireFX = FX_Bnag ; loud\nEnd\n");
  program.showManualEditor({game.qpath() + "\\Data\\INI\\Weapon.ini"});
  waitForEditor();
  QWidget* control = text().focusProxy();
  ASSERT_TRUE(QTest::qWaitFor([&] {
    QTest::keyClick(control, Qt::Key_F8);
    return text().selectedText() == "FX_Bnag";
  }));
  QTest::keyClick(control, Qt::Key_Period, Qt::ControlModifier);
  QTest::keyClick(control, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"),
            GameFolder::CrLf("Weapon Gun\n  ClipSize = 2\n  FireFX = FX_Bang ; loud\nEnd\n"));
}

TEST_F(EditInFile, KeysShowAValueEditItAndReadItAgain) {
  window.activateWindow();
  window.findChild<QTabWidget*>("F_Tab")->setCurrentWidget(field("TxtBS").parentWidget()->parentWidget());
  field("TxtBS").setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return field("TxtBS").hasFocus(); }));
  QTest::keyClick(&field("TxtBS"), Qt::Key_F6);
  waitForEditor();
  EXPECT_EQ(text().selectedText(), "8.0");
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  type("TxtBS", "9.5");
  QTest::keyClick(&field("TxtBS"), Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_TRUE(QTest::qWaitFor([] { return text().selectedText() == "9.5"; }));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&field("TxtBS"), Qt::Key_F5);
  EXPECT_EQ(field("TxtBS").text(), "8.0");
  window.activateWindow();
  window.findChild<QTreeView*>("TVMenu")->setFocus();
  window.findChild<QAction*>("showInFile")->trigger();
  EXPECT_TRUE(QTest::qWaitFor([] { return text().selectedText() == "Tank"; }));
  const auto* wholeFile = window.findChild<QPushButton*>("CmdME_FINI");
  ASSERT_EQ(wholeFile->contextMenuPolicy(), Qt::ActionsContextMenu);
  ASSERT_EQ(wholeFile->actions().size(), 1);
  text().moveToStart();
  window.activateWindow();
  window.findChild<QTabWidget*>("F_Tab")->setCurrentIndex(3);
  window.findChild<QPushButton*>("CmdME_FINI")->setFocus();
  wholeFile->actions().first()->trigger();
  EXPECT_TRUE(QTest::qWaitFor([] { return text().selectedText() == "Tank"; }));
}

}  // namespace
}  // namespace korvane
