// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

#include "controls/FullTextTips.h"
#include "controls/NoticeBar.h"
#include "editors/EditorDesk.h"
#include "editors/TableEditor.h"
#include "editors/TableEditors.h"

namespace korvane {
namespace {

// Three weapons, one without a block; and two command buttons.
class TableEditorTest : public EditorDesk {
 protected:
  void SetUp() override {
    units.weapons = QStringList{"Rocket", "cannon", "Axe"};
    game.ini("Weapon.ini",
             "Weapon Rocket\n  PrimaryDamage = 40.0\nEnd\nWeapon Cannon\n  PrimaryDamage = 7\nEnd\n");
    game.ini(
        "CommandButton.ini",
        "CommandButton Stop ; halt\n  Command = STOP\nEnd\nCommandButton Attack\n  Command = GUARD\nEnd\n");
  }
};

TEST_F(TableEditorTest, AWeaponIsLookedUpShownAndHandedToTheManualEditor) {
  const auto editor = open<FrmWE>();
  EXPECT_EQ(entries(*editor), (QStringList{"Axe", "cannon", "Rocket"}));
  EXPECT_EQ(selected(*editor), "Rocket") << "the one added first";
  EXPECT_EQ(editor->windowTitle(), "Weapon Editor");
  EXPECT_TRUE(rows(*editor).isEmpty());

  click(*editor, 2);
  EXPECT_EQ(editor->windowTitle(), "Rocket - Weapon Editor");
  EXPECT_EQ(rows(*editor).value(0), "Weapon Damage|40.0");
  QTest::keyClick(&list(*editor), Qt::Key_Up);
  EXPECT_EQ(editor->windowTitle(), "cannon - Weapon Editor");
  EXPECT_EQ(rows(*editor).value(0), "Weapon Damage|7");
  for (int row = 0; row < table(*editor).rowCount(); ++row) EXPECT_TRUE(table(*editor).row(row).redAndBold);

  trigger(*editor, "MnuManEd");
  ASSERT_EQ(launcher.requests.size(), 1U);
  const ManualEditRequest& request = launcher.requests[0];
  EXPECT_EQ(request.text, "Weapon Cannon\r\n  PrimaryDamage = 7\r\nEnd\r\n");
  EXPECT_EQ(request.ManualEditFile, game.qpath() + "\\Data\\INI\\Weapon.ini");
  EXPECT_EQ(request.ManualEditPartial, 1);
}

TEST_F(TableEditorTest, ACommandButtonIsShownWithoutTheCommentInItsName) {
  const auto editor = open<FrmCmdBtn>();
  EXPECT_EQ(entries(*editor), (QStringList{"Attack", "Stop"}));
  EXPECT_EQ(selected(*editor), "Stop");
  click(*editor, 1);
  EXPECT_EQ(editor->windowTitle(), "Stop - Command Button Editor");
  EXPECT_EQ(rows(*editor).value(0), "Command Type|STOP");
}

TEST_F(TableEditorTest, OnlyHeaderLinesNameEntries) {
  game.ini(
      "CommandButton.ini",
      "CommandButton A\n  CommandButton B\nCommandButtonX C\ncommandbutton D\nCommandButton\nCommandButton "
      "A extra\n");
  EXPECT_EQ(entries(*open<FrmCmdBtn>()), (QStringList{"A", "A", "C"}));
}

TEST_F(TableEditorTest, AMissingFileGivesAnEmptyListWithNothingToEdit) {
  std::filesystem::remove(game.native("Data/INI/CommandButton.ini"));
  const auto editor = open<FrmCmdBtn>();
  EXPECT_TRUE(entries(*editor).isEmpty());
  trigger(*editor, "PopManEd");
  EXPECT_TRUE(launcher.requests.empty());
}

TEST_F(TableEditorTest, AWeaponWithoutANameHasNothingToEdit) {
  units.weapons = QStringList{"", "Rocket"};
  const auto editor = open<FrmWE>();
  click(*editor, 0);
  trigger(*editor, "MnuManEd");
  EXPECT_TRUE(launcher.requests.empty());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "This entry has no name.");
}

TEST_F(TableEditorTest, TheWeaponEditorSaysWhatBecameOfTheWeaponThatWasAskedFor) {
  const auto editor = open<FrmWE>();
  auto& bar = *editor->findChild<NoticeBar*>();
  const auto followLink = [&bar] {
    auto* label = bar.findChild<QLabel*>();
    Q_EMIT label->linkActivated(label->text().section("href=\"", 1).section('"', 0, 0));
    QCoreApplication::processEvents();
  };
  EXPECT_EQ(bar.sentences(), QStringList());
  editor->selectEntry("rocket");
  EXPECT_EQ(bar.sentences(), QStringList{"Show 'Rocket'"});
  EXPECT_TRUE(rows(*editor).isEmpty());
  followLink();
  EXPECT_EQ(editor->windowTitle(), "Rocket - Weapon Editor");
  EXPECT_EQ(rows(*editor).value(0), "Weapon Damage|40.0");
  EXPECT_EQ(bar.sentences(), QStringList());

  editor->selectEntry("Canon");
  EXPECT_EQ(selected(*editor), "none");
  EXPECT_EQ(bar.sentences(), QStringList{"Weapon.ini has no weapon 'Canon'. Is it cannon?"});
  followLink();
  EXPECT_EQ(selected(*editor), "cannon");
  EXPECT_EQ(rows(*editor).value(0), "Weapon Damage|7");

  editor->selectEntry("Laser");
  EXPECT_EQ(bar.sentences(), QStringList{"Weapon.ini has no weapon 'Laser'."});
  editor->selectEntry("");
  EXPECT_EQ(bar.sentences(), QStringList());
}

TEST_F(TableEditorTest, TheChosenEntryStaysInSightWhenASentenceTakesItsPlace) {
  units.weapons.clear();
  for (int i = 0; i < 200; ++i) units.weapons += QString("Gun%1").arg(i, 3, 10, QChar('0'));
  const auto editor = open<FrmWE>();
  const QListView& view = list(*editor);
  const auto isSeen = [&view] {
    return view.viewport()->rect().contains(view.visualRect(view.currentIndex()).center());
  };
  const int lastSeen = view.indexAt({5, view.viewport()->height() - 5}).row();
  ASSERT_GT(lastSeen, 5);
  editor->selectEntry(units.weapons[lastSeen - 1]);
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.viewport()->height() < view.sizeHintForRow(0) * lastSeen; }));
  EXPECT_TRUE(isSeen());
  list(*editor).verticalScrollBar()->setValue(100);
  ASSERT_FALSE(isSeen());
  editor->resize(editor->width(), editor->height() - 50);
  QCoreApplication::processEvents();
  EXPECT_FALSE(isSeen()) << "the user looks at other entries";
}

TEST_F(TableEditorTest, AnEntryIsFoundByItsFirstWholeWord) {
  units.weapons = QStringList{"Rocket_Big", "RocketLauncher", "rocket", "Rocket-2", "Gun Turret"};
  const auto editor = open<FrmWE>();
  const std::pair<const char*, const char*> cases[] = {
      {"ROCKET", "rocket"}, {"Gun", "Gun Turret"}, {"Rocket-2", "Rocket-2"}, {"Roc", "none"}, {"", "none"}};
  for (const auto& [wanted, found] : cases) {
    editor->selectEntry(wanted);
    EXPECT_EQ(selected(*editor), found) << wanted;
  }
  EXPECT_TRUE(rows(*editor).isEmpty());
}

// What the user can do in the middle of a fill of the weapon editor.
class DuringAFill : public TableEditorTest {
 protected:
  void SetUp() override {
    TableEditorTest::SetUp();
    weapons = open<FrmWE>();
    buttons = open<FrmCmdBtn>();
    click(*weapons, 2);
  }
  void fillWith(std::function<void()> step) {
    yield.onTurn = std::move(step);
    click(*weapons, 1);
    EXPECT_FALSE(yield.onTurn);
  }
  void expectCannonWhole() const {
    EXPECT_EQ(weapons->windowTitle(), "cannon - Weapon Editor");
    EXPECT_EQ(rows(*weapons).value(0), "Weapon Damage|7");
    EXPECT_EQ(rows(*weapons).size(), 18);
    EXPECT_EQ(selected(*weapons), "cannon");
  }

  std::unique_ptr<FrmWE> weapons;
  std::unique_ptr<FrmCmdBtn> buttons;
};

TEST_F(DuringAFill, AnotherClickIsIgnored) {
  fillWith([this] { click(*weapons, 2); });
  expectCannonWhole();
}

TEST_F(DuringAFill, AClickInAnotherEditorIsIgnored) {
  fillWith([this] { click(*buttons, 0); });
  expectCannonWhole();
  EXPECT_EQ(selected(*buttons), "Stop");
  EXPECT_EQ(buttons->windowTitle(), "Command Button Editor");
  EXPECT_TRUE(rows(*buttons).isEmpty());
}

TEST_F(DuringAFill, AManualEditIsIgnored) {
  fillWith([this] { trigger(*buttons, "MnuManEd"); });
  expectCannonWhole();
  EXPECT_TRUE(launcher.requests.empty());
}

TEST_F(DuringAFill, AWindowThatIsClosedGoesOnlyAfterwards) {
  QSignalSpy closed(weapons.get(), &TableEditor::closedForGood);
  fillWith([&] {
    trigger(*weapons, "MnuExit");
    EXPECT_FALSE(weapons->isVisible());
    EXPECT_EQ(closed.count(), 0);
  });
  EXPECT_EQ(closed.count(), 1);
}

TEST_F(DuringAFill, TheRowsBeforeItAreSeen) {
  fillWith([this] { EXPECT_EQ(table(*weapons).model()->index(0, 1).data(), "40.0"); });
  EXPECT_EQ(table(*weapons).model()->index(0, 1).data(), "7");
}

TEST_F(TableEditorTest, EachEditorComesBackWhereItWasClosed) {
  auto editor = open<FrmWE>();
  editor->setGeometry(70, 60, 700, 400);
  QSignalSpy closed(editor.get(), &TableEditor::closedForGood);
  editor->close();
  EXPECT_EQ(closed.count(), 1);
  open<FrmCmdBtn>()->close();
  editor = open<FrmWE>();
  EXPECT_EQ(editor->geometry(), QRect(70, 60, 700, 400));
}

TEST_F(TableEditorTest, ListAndTableShareTheWindow) {
  const auto editor = open<FrmWE>();
  editor->resize(1000, 500);
  QTest::qWait(0);
  const QSize inside = editor->centralWidget()->size();
  const int tableLeft = inside.width() * 3 / 10;
  const int margin = 100 / 15;
  EXPECT_EQ(list(*editor).geometry(),
            QRect(margin, margin, tableLeft - 175 / 15, inside.height() - 2 * margin));
  EXPECT_EQ(table(*editor).geometry(),
            QRect(tableLeft, margin, inside.width() - tableLeft - margin, inside.height() - 2 * margin));
}

TEST_F(TableEditorTest, TheRightButtonOpensTheMenuOverListAndTable) {
  const auto editor = open<FrmWE>();
  auto* menu = editor->findChild<QMenu*>("MnuPop");
  for (QWidget* over : {list(*editor).viewport(), table(*editor).viewport()}) {
    QTest::mouseClick(over, Qt::LeftButton);
    QTest::qWait(0);
    EXPECT_FALSE(menu->isVisible());
    QTest::mouseClick(over, Qt::RightButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    menu->close();
  }
}

TEST_F(TableEditorTest, TooltipsTellOfTheNamesInTheListAndTheTable) {
  FullTextTips::install();
  game.ini("Weapon.ini", "Weapon Rocket\n  PrimaryDamage = 40\n  FireSound = Boom\nEnd\n");
  const auto editor = open<FrmWE>();
  click(*editor, 2);
  const auto tipOf = [](QAbstractItemView& view, const QModelIndex& entry) {
    QWidget& shown = *view.viewport();
    const QPoint at = view.visualRect(entry).center();
    QToolTip::showText({}, "nothing", &shown);
    QHelpEvent event(QEvent::ToolTip, at, shown.mapToGlobal(at));
    QApplication::sendEvent(&shown, &event);
    return QToolTip::text();
  };
  EXPECT_TRUE(tipOf(list(*editor), list(*editor).model()->index(0, 0)).contains("about Axe"));
  QStringList told;
  for (int row = 0; row < table(*editor).rowCount(); ++row) {
    const QString tip = tipOf(table(*editor), table(*editor).model()->index(row, 1));
    if (tip.contains("about")) told += tip;
  }
  ASSERT_EQ(told.size(), 1);
  EXPECT_TRUE(told[0].contains("about Boom"));
}

}  // namespace
}  // namespace korvane
