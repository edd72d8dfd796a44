// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>

#include "startup/FileDesk.h"

namespace korvane {
namespace {

// What is shown of a file when that is saved.
class ReadAgain : public FileDesk {
 protected:
  void SetUp() override {
    FileDesk::SetUp();
    std::string armour = "Armor A\n";
    for (int i = 0; i < 40; ++i) armour += "  Armor = TYPE" + std::to_string(i) + " 10%\n";
    game.ini("Armor.ini", armour + "End\n");
  }

  template <typename Widget>
  Widget& get(const char* name) const {
    return *window.findChild<Widget*>(name);
  }
  bool shows(const char* name, const QString& value) const {
    return QTest::qWaitFor([&] { return field(name).text() == value; });
  }
  bool says(const QString& sentence) const {
    return QTest::qWaitFor([&] { return !notices().isEmpty() && notices().last() == sentence; });
  }

  QWidget& armourEditor() {
    EXPECT_TRUE(program.showEntry(TableEditorId::armours, "A"));
    return *WindowNamed("FrmArmour");
  }
  static InPlaceTable& table(const QWidget& editor) { return *editor.findChild<InPlaceTable*>("LVEdit"); }
  static QStringList noticesOf(const QWidget& editor) {
    return editor.findChild<NoticeBar*>("NoticeBar")->sentences();
  }
};

// Everything that a read must leave as it is.
struct View {
  int tab, set, locomotor, cursor, selected, top;
  QString row;
  QModelIndex node;
  QWidget* focus;
  bool operator==(const View&) const = default;
};

class Appearances : public QObject {
 public:
  Appearances() { qApp->installEventFilter(this); }
  int ofProgress = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show && watched->objectName() == "FrmColData") ++ofProgress;
    return false;
  }
};

TEST_F(ReadAgain, NothingButTheValuesOfTheObjectChanges) {
  settings.SaveSet("InfoTab", "2");
  show("Truck");
  auto& list = get<InPlaceTable>("LstInfo");
  auto& tabs = get<QTabWidget>("F_Tab");
  tabs.setCurrentIndex(5);
  list.setFixedHeight(80);
  list.selectRow(3);
  get<QComboBox>("Conditions").setCurrentIndex(1);
  Q_EMIT get<QComboBox>("Conditions").activated(1);
  get<QTabBar>("LocoTab").setCurrentIndex(1);
  list.selectRow(3);
  QTest::qWait(1);
  list.verticalScrollBar()->setValue(4);
  tabs.setCurrentWidget(field("TxtCost").parentWidget()->parentWidget());
  window.activateWindow();
  field("TxtBS").setFocus();
  field("TxtBS").setCursorPosition(0);
  const auto view = [&] {
    const auto* row = list.selectedRow();
    return View{tabs.currentIndex(),
                get<QComboBox>("Conditions").currentIndex(),
                get<QTabBar>("LocoTab").currentIndex(),
                field("TxtBS").cursorPosition(),
                field("TxtBS").selectionLength(),
                list.verticalScrollBar()->value(),
                row == nullptr ? "none" : row->caption,
                get<QTreeView>("TVMenu").currentIndex(),
                window.focusWidget()};
  };
  const View before = view();
  EXPECT_EQ(before.locomotor, 1);
  EXPECT_EQ(before.top, 4);
  const Appearances appearances;
  change("Object\\FactionUnit.ini", "BuildCost = 70", "BuildCost = 71");
  EXPECT_TRUE(shows("TxtCost", "71"));
  EXPECT_EQ(get<QComboBox>("PWeapon").currentText(), "Rocket");
  change("Object\\FactionUnit.ini", "PRIMARY Rocket", "PRIMARY Missile");
  EXPECT_TRUE(QTest::qWaitFor([&] { return get<QComboBox>("PWeapon").currentText() == "Missile"; }));
  change("Locomotor.ini", "Speed = 60", "Speed = 61");
  EXPECT_TRUE(QTest::qWaitFor([&] { return field("HS_TextBox1").displayText().startsWith("61"); }));
  EXPECT_TRUE(view() == before);
  EXPECT_EQ(appearances.ofProgress, 0);
}

TEST_F(ReadAgain, WhatIsTypedStaysUntilTheUserWantsItRead) {
  show("Truck");
  type("TxtBS", "9");
  change("Object\\FactionUnit.ini", "BuildCost = 70", "BuildCost = 71");
  EXPECT_TRUE(says("FactionUnit.ini was saved after this was read. Read again (what is typed here goes)."));
  EXPECT_EQ(field("TxtBS").text(), "9");
  EXPECT_EQ(field("TxtCost").text(), "70");
  follow("Read again");
  EXPECT_EQ(field("TxtCost").text(), "71");
  EXPECT_EQ(field("TxtBS").text(), "");
  EXPECT_EQ(notices(), QStringList());
}

TEST_F(ReadAgain, WhatWasTypedAndSavedIsReadAndNoLongerTyped) {
  type("TxtCost", "1000");
  editInFile();
  save();
  EXPECT_TRUE(QTest::qWaitFor([this] { return window.typed().typed().empty(); }));
  EXPECT_EQ(field("TxtCost").text(), "1000");
  type("TxtCost", "1");
  type("TxtBS", "9");
  change("Object\\FactionUnit.ini", "BuildTime = 8.0", "BuildTime = 9");
  EXPECT_TRUE(QTest::qWaitFor([this] { return window.typed().typed().size() == 1; }));
  EXPECT_EQ(field("TxtCost").text(), "1");
}

TEST_F(ReadAgain, OtherFilesAreNoReasonToRead) {
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  game.ini("CommandSet.ini", "CommandSet A\nEnd\n");
  game.objects("FactionUnit.ini", "Object Tank\n  BuildCost = 5\nEnd\n");
  change("CommandSet.ini", "A", "B");
  QTest::qWait(1);
  EXPECT_EQ(field("TxtCost").text(), "900");
  change("Weapon.ini", "Gun", "Gun2");
  EXPECT_TRUE(shows("TxtCost", "5"));
  EXPECT_EQ(get<QComboBox>("PWeapon").itemText(0), "Gun2");
}

TEST_F(ReadAgain, AReadThatFindsTheParserTakenIsMadeUpFor) {
  QWidget& editor = armourEditor();
  {
    const ParserTurn turn(window.parser());
    change("Object\\FactionUnit.ini", "900", "901");
    change("Armor.ini", "TYPE1 10%", "TYPE1 11%");
    QTest::qWait(120);
    EXPECT_EQ(field("TxtCost").text(), "900");
    EXPECT_EQ(table(editor).row(1).value, "10%");
  }
  EXPECT_TRUE(shows("TxtCost", "901"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return table(editor).row(1).value == "11%"; }));
}

TEST_F(ReadAgain, ATableStaysWhereItIs) {
  QWidget& editor = armourEditor();
  InPlaceTable& rows = table(editor);
  rows.setCurrentIndex(rows.model()->index(30, 1));
  rows.verticalScrollBar()->setValue(10);
  const int top = rows.verticalScrollBar()->value();
  ASSERT_GT(top, 0);
  change("Armor.ini", "  Armor = TYPE20 10%\r\n", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return rows.rowCount() == 39; }));
  ASSERT_NE(rows.selectedRow(), nullptr);
  EXPECT_EQ(rows.selectedRow()->caption, "TYPE30");
  EXPECT_EQ(rows.verticalScrollBar()->value(), top);
  EXPECT_TRUE(noticesOf(editor).isEmpty());
}

TEST_F(ReadAgain, ATableKeepsWhatIsTypedOrInserted) {
  QWidget& editor = armourEditor();
  InPlaceTable& rows = table(editor);
  const QModelIndex cell = rows.model()->index(1, 1);
  const struct {
    const char* what;
    std::function<void()> act;
    std::function<bool()> isKept;
  } kCases[] = {
      {"typed", [&] { rows.model()->setData(cell, "5%"); }, [&] { return rows.row(1).value == "5%"; }},
      {"inserted", [&] { rows.addRow("FLAME"); }, [&] { return rows.row(40).caption == "FLAME"; }},
      {"being typed", [&] { static_cast<QAbstractItemView&>(rows).edit(cell); },
       [&] { return rows.isEditing(); }},
  };
  int percentage = 10;
  for (const auto& [what, act, isKept] : kCases) {
    SCOPED_TRACE(what);
    act();
    const std::string before = "TYPE0 " + std::to_string(percentage) + '%';
    const std::string after = "TYPE0 " + std::to_string(++percentage) + '%';
    change("Armor.ini", before.c_str(), after.c_str());
    EXPECT_TRUE(QTest::qWaitFor([&] { return noticesOf(editor).join(' ').contains("Read again"); }));
    EXPECT_TRUE(isKept());
    followIn(editor, "Read again");
    EXPECT_EQ(rows.row(0).value, QString::number(percentage) + '%');
    EXPECT_EQ(rows.rowCount(), 40);
    EXPECT_EQ(noticesOf(editor), QStringList());
  }
}

class Paintings : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
  int count = 0;
};

TEST_F(ReadAgain, TheNewValueIsPainted) {
  get<QTabWidget>("F_Tab").setCurrentIndex(4);
  ASSERT_TRUE(field("TxtCost").isVisible());
  type("TxtCost", "1000");
  editInFile();
  QTest::qWait(100);
  Paintings paintings;
  field("TxtCost").installEventFilter(&paintings);
  save();
  EXPECT_TRUE(QTest::qWaitFor([this] { return notices().isEmpty(); }));
  EXPECT_TRUE(QTest::qWaitFor([&paintings] { return paintings.count > 0; }));
}

}  // namespace
}  // namespace korvane
