// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainWindow.h"
#include "mainwindow/ObjectDisplay.h"

namespace korvane {
namespace {

class ObjectDisplayTest : public MainWindow {};

TEST_F(ObjectDisplayTest, ACategoryShowsItsPathAndEmptiesTheArmourOnly) {
  open();
  click("Jeep");
  click("Other");
  EXPECT_EQ(panel(1), "Player Units\\Other");
  EXPECT_EQ(panel(2), "FactionUnit.ini");
  EXPECT_EQ(panel(3), "There are 3 items in this catagory.");
  EXPECT_EQ(chosen("CboArmour"), "");
  EXPECT_EQ(text("MHealth"), "240.05");
  EXPECT_FALSE(get<QTabWidget>("F_Tab").isEnabled());
  EXPECT_EQ(informationOf("Name"), "Other");
}

// Other windows follow the armour type.
TEST_F(ObjectDisplayTest, OnlyAChangeOfTheArmourTypeIsTold) {
  open();
  for (const char* name : {"Jeep", "Jeep", "Hut"}) click(name);
  QStringList told = launcher.takeCalls();
  EXPECT_EQ(told.filter("armour"), (QStringList{"select armour Plate", "select armour "}));
}

TEST_F(ObjectDisplayTest, WhatIsShownIsWhatIsSelectedWhicheverWayItIsClicked) {
  open();
  QTreeView& tree = get<QTreeView>("TVMenu");
  const auto clickWith = [&](Qt::MouseButton button, Qt::KeyboardModifiers keys, const char* name) {
    QTest::mouseClick(tree.viewport(), button, keys, tree.visualRect(node(name)).center());
  };
  click("Jeep");
  clickWith(Qt::LeftButton, Qt::ControlModifier, "Jeep");
  EXPECT_EQ(informationOf("Name"), "Jeep");
  QTest::keyClick(&tree, Qt::Key_Space, Qt::ControlModifier);
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.viewport()->rect().bottomRight());
  EXPECT_TRUE(tree.selectionModel()->isSelected(node("Jeep")));
  clickWith(Qt::RightButton, {}, "Hut");
  EXPECT_TRUE(tree.selectionModel()->isSelected(node("Hut")));
  EXPECT_EQ(text("MHealth"), "900");
}

TEST_F(ObjectDisplayTest, AnObjectFillsEveryField) {
  settings.SaveSet("InfoTab", "2");
  open();
  click("Jeep");
  EXPECT_EQ(panel(1), "Player Units\\Other\\Jeep");
  EXPECT_EQ(panel(3), "There are 0 items in this catagory.");
  EXPECT_EQ(get<QTabWidget>("F_Tab").currentIndex(), 2);
  EXPECT_EQ(text("MHealth"), "240.05");  // two lines run together
  EXPECT_EQ(text("IHealth"), "200");
  EXPECT_EQ(text("TxtCost"), "1500");
  EXPECT_EQ(text("TxtBS"), "8.5");
  EXPECT_EQ(text("TxtVisRange"), "150");
  EXPECT_EQ(text("TxtSCR"), "300");
  EXPECT_EQ(chosen("CboArmour"), "Plate");
  EXPECT_EQ(get<QComboBox>("CboArmour").count(), 2);
  EXPECT_EQ(window->weaponNames(), (QStringList{"Gun", "Rocket", ""}));
  EXPECT_EQ(chosen("Conditions"), "None");
  EXPECT_EQ(get<QComboBox>("CondCombo").count(), 2);
  EXPECT_EQ(QStringList({chosen("PWeapon"), chosen("SWeapon"), chosen("TWeapon")}),
            QStringList({"Gun", "Rocket", ""}));
  const QTabBar& tabs = get<QTabBar>("LocoTab");
  EXPECT_EQ(tabs.count(), 2);
  EXPECT_EQ(tabs.tabData(1), "PvKey2");
  EXPECT_EQ(chosen("CboLocomotor"), "Wheels");
  EXPECT_TRUE(window->isEnabled());
}

TEST_F(ObjectDisplayTest, AValueThatTheMaskCannotTakeStandsWhole) {
  open();
  click("Jeep");
  EXPECT_EQ(handling(0), "GROUND");
  EXPECT_EQ(handling(1), "40__ dist/sec");
  EXPECT_EQ(handling(2), "22.5 dist/sec");
  EXPECT_EQ(handling(3), "-90 degrees/sec");
  EXPECT_EQ(handling(4), "____ degrees/sec");
  QLineEdit& turnRate = get<QLineEdit>("HS_TextBox3");
  turnRate.selectAll();
  QTest::keyClicks(&turnRate, "7x85");
  EXPECT_EQ(handling(3), "785_ degrees/sec");  // one that fits is typed under the mask again
  press("HS_ClearBtn2");
  EXPECT_EQ(handling(2), "____ dist/sec");
  get<QTabBar>("LocoTab").setCurrentIndex(1);
  EXPECT_EQ(handling(0), "");
  EXPECT_EQ(handling(1), "15__ dist/sec");
  EXPECT_EQ(handling(7), "123456_ dist/(sec^2)");
}

TEST_F(ObjectDisplayTest, ListsOfConditionsAndLocomotorsFollowEachOther) {
  open();
  click("Jeep");
  choose("CondCombo", 1);
  EXPECT_EQ(get<QComboBox>("Conditions").currentIndex(), 1);
  // The switch takes the second place and pushes the other weapon down.
  EXPECT_EQ(QStringList({chosen("PWeapon"), chosen("SWeapon"), chosen("TWeapon")}),
            QStringList({"Rocket", "", "Gun"}));
  EXPECT_EQ(informationOf("Tertiary Weapon"), "Gun");
  choose("Conditions", 0);
  EXPECT_EQ(get<QComboBox>("CondCombo").currentIndex(), 0);
  EXPECT_EQ(informationOf("Primary Weapon"), "Gun");
  choose("CboLoco", 1);
  EXPECT_EQ(chosen("CboLocomotor"), "Tracks");
  get<QTabWidget>("F_Tab").setCurrentIndex(0);
  QLineEdit& locomotor = *get<QComboBox>("CboLocomotor").lineEdit();
  locomotor.setFocus();
  locomotor.selectAll();
  QTest::keyClicks(&locomotor, "Whe");
  EXPECT_EQ(locomotor.text(), "Whe");  // not completed to a name that the tab does not have
  locomotor.selectAll();
  QTest::keyClicks(&locomotor, "Rails&Tyres");
  QTabBar& tabs = get<QTabBar>("LocoTab");
  EXPECT_EQ(tabs.tabText(1), "Rails&&Tyres");  // no mnemonic
  get<QLineEdit>("HS_TextBox1").setText("99");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
  EXPECT_EQ(handling(1), "15__ dist/sec");  // read again
  EXPECT_EQ(chosen("CboLocomotor"), "Rails&Tyres");
  EXPECT_EQ(informationOf("Locomotor"), "Wheels, Rails&Tyres");
}

TEST_F(ObjectDisplayTest, AnObjectWithoutAnythingEmptiesTheFields) {
  open();
  click("Jeep");
  click("Hut");
  EXPECT_EQ(text("MHealth"), "900");
  for (const char* field : {"IHealth", "TxtCost", "TxtBS", "TxtVisRange", "TxtSCR"})
    EXPECT_EQ(text(field), "") << field;
  for (const char* list :
       {"CboArmour", "PWeapon", "SWeapon", "TWeapon", "Conditions", "CboLoco", "CboLocomotor"}) {
    EXPECT_EQ(chosen(list), "") << list;
  }
  EXPECT_EQ(get<QTabBar>("LocoTab").count(), 0);
  EXPECT_EQ(handling(1), "____ dist/sec");
  click("Ghost");  // not in the file any more
  EXPECT_EQ(text("MHealth"), "");
}

TEST_F(ObjectDisplayTest, AMissingFileIsToldAndLeavesTheFields) {
  open();
  click("Jeep");
  const QStringList before = information();
  click("Lost");
  EXPECT_EQ(panel(2), "Gone.ini  (Error: File does not exist)");
  EXPECT_EQ(text("MHealth"), "240.05");
  EXPECT_EQ(information(), before);
  EXPECT_TRUE(window->isEnabled());
}

TEST_F(ObjectDisplayTest, MissingListFilesLeaveTheListsEmpty) {
  for (const char* name : {"Weapon.ini", "Armor.ini", "Locomotor.ini"}) {
    std::filesystem::remove(game.native(std::string("Data/INI/") + name));
  }
  open();
  click("Jeep");
  EXPECT_TRUE(window->weaponNames().isEmpty());
  EXPECT_EQ(chosen("PWeapon"), "Gun");
  EXPECT_EQ(chosen("CboLocomotor"), "Wheels");
  EXPECT_EQ(handling(1), "____ dist/sec");
}

TEST_F(ObjectDisplayTest, TheKeyboardWalksDownTheObjects) {
  open();
  click("Jeep");
  QTreeView& tree = get<QTreeView>("TVMenu");
  window->activateWindow();
  tree.setFocus();
  QTest::keyClick(&tree, Qt::Key_Down);
  EXPECT_EQ(text("MHealth"), "900");
  EXPECT_EQ(window->focusWidget(), &tree);
}

TEST_F(ObjectDisplayTest, AClickInTheMiddleOfAReadIsIgnored) {
  open();
  click("Hut");
  bool disabled = false;
  yield.onTurn = [&] {
    disabled = !window->isEnabled();
    Q_EMIT get<QTreeView>("TVMenu").clicked(node("Hut"));
    get<QTabBar>("LocoTab").setCurrentIndex(0);
  };
  click("Jeep");
  EXPECT_TRUE(disabled);
  EXPECT_EQ(text("MHealth"), "240.05");
  EXPECT_EQ(get<QTreeView>("TVMenu").currentIndex(), node("Jeep"));
}

// Runs the step with the first events that come in when the user's input no longer waits.
void WhenInputComesIn(QObject& context, const EventYield& yield, const std::function<void()>& step) {
  QTimer::singleShot(0, &context, [&context, &yield, step] {
    if (yield.holdsInput()) {
      WhenInputComesIn(context, yield, step);
    } else {
      step();
    }
  });
}

TEST_F(ObjectDisplayTest, InputWaitsDuringAReadAndOnlyTheLastStopOfItsKeysIsRead) {
  game.objects("FactionUnit.ini", std::string(kUnits) + "Object Wall\n  MaxHealth = 7\nEnd\n");
  open();
  for (const char* name : {"Wagon", "Wall", "Wheel"}) addObject(name, "FUOther", "FactionUnit.ini");
  window->activateWindow();
  QTreeView& tree = get<QTreeView>("TVMenu");
  tree.setFocus();
  QStringList read;
  QObject::connect(&get<QLineEdit>("MHealth"), &QLineEdit::textChanged,
                   [&](const QString& value) { read += value; });
  bool waited = false;
  const auto use = [&] {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(node("Ghost")).center());
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClicks(&tree, "wal");
  };
  yield.onTurn = [&] {
    waited = yield.holdsInput();
    WhenInputComesIn(*window, yield, use);
  };
  click("Jeep");
  EXPECT_TRUE(waited);
  EXPECT_EQ(tree.currentIndex(), node("Wall"));
  EXPECT_EQ(text("MHealth"), "7");
  EXPECT_EQ(read, QStringList({"240.05", "7"}));
  EXPECT_EQ(panel(1), "Player Units\\Other\\Wall");
  EXPECT_EQ(window->focusWidget(), &tree);
  const auto clickOnly = [&] {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(node("Ghost")).center());
  };
  yield.onTurn = [&] { WhenInputComesIn(*window, yield, clickOnly); };
  click("Hut");
  EXPECT_EQ(tree.currentIndex(), node("Hut")) << "clicks do not wait";
}

TEST_F(ObjectDisplayTest, ADamagedFilesNamesOfMegabytesAreShownInPart) {
  open();
  const std::string name(500'000, 'A');
  game.objects("FactionUnit.ini", "Object " + name + "\n  Locomotor = SET_NORMAL " + name +
                                      "\n  WeaponSet\n    Conditions = " + name + "\n  End\nEnd\n");
  game.ini("Weapon.ini", "Weapon " + name);
  addObject(name, "FUOther", "FactionUnit.ini");
  click(QString(1000, u'A'));
  for (const char* list : {"Conditions", "CboLoco"}) EXPECT_EQ(chosen(list).size(), 1000) << list;
  EXPECT_EQ(get<QComboBox>("PWeapon").itemText(0).size(), 1000);
  EXPECT_LT(panel(1).size(), 1100);
}

TEST_F(ObjectDisplayTest, ValuesAreReadAnewAtEachClick) {
  open();
  click("Hut");
  game.objects("FactionUnit.ini", "Object Hut\n  MaxHealth = 901\nEnd\n");
  click("Hut");
  EXPECT_EQ(text("MHealth"), "901");
}

TEST_F(ObjectDisplayTest, AClickWhileStartUpReadsTheWeaponsIsIgnored) {
  std::string weapons;
  for (int i = 0; i < 200; ++i) weapons += "Weapon Gun" + std::to_string(i) + "\nEnd\n";
  game.ini("Weapon.ini", weapons);
  open();
  yield.onTurn = [this] { click("Jeep"); };
  window->readWeapons();
  EXPECT_FALSE(yield.onTurn);
  EXPECT_EQ(window->weaponNames().size(), 200);
  EXPECT_EQ(text("MHealth"), "");
  EXPECT_FALSE(get<QTreeView>("TVMenu").selectionModel()->hasSelection());
}

TEST_F(ObjectDisplayTest, ConditionsThatLookAlikeTellAllTheirWords) {
  game.objects("FactionUnit.ini",
               "Object Jeep\n"
               "  WeaponSet\n    Conditions = None\n  End\n"
               "  WeaponSet\n    Conditions = PLAYER_UPGRADE VETERAN ; both\n  End\n"
               "  WeaponSet\n    Conditions VETERAN\n  End\n"
               "End\n");
  open();
  click("Jeep");
  for (const char* name : {"Conditions", "CondCombo"}) {
    const auto& list = get<QComboBox>(name);
    ASSERT_EQ(list.count(), 3) << name;
    EXPECT_EQ(list.itemText(1), "VETERAN");
    EXPECT_EQ(list.itemData(1, Qt::ToolTipRole).toString(), "PLAYER_UPGRADE VETERAN");
    EXPECT_EQ(list.itemData(0, Qt::ToolTipRole).toString(), "");
    EXPECT_EQ(list.itemData(2, Qt::ToolTipRole).toString(), "");
  }
}

TEST_F(ObjectDisplayTest, AnObjectWithErrorsHasASignAndItsTextStays) {
  open();
  window->showProblems("1 error, 0 warnings",
                       {{"object\\factionunit.ini", "JEEP", "no FXList 'A<b>' is defined"}});
  const auto sign = [this](const char* name) {
    return node(name).data(ObjectTreeModel::signsRole).toStringList();
  };
  EXPECT_EQ(sign("Jeep"), QStringList("error"));
  EXPECT_EQ(node("Jeep").data().toString(), "Jeep");
  EXPECT_TRUE(node("Jeep").data(Qt::ToolTipRole).toString().contains("A&lt;b&gt;"));
  EXPECT_EQ(node("Jeep").data(Qt::AccessibleDescriptionRole).toString(), "no FXList 'A<b>' is defined");
  for (const char* other : {"Hut", "Lost", "Player Units"}) EXPECT_TRUE(sign(other).isEmpty()) << other;
  window->grab();
  window->showProblems("0 errors, 0 warnings", {});
  EXPECT_TRUE(sign("Jeep").isEmpty());
}

TEST_F(ObjectDisplayTest, ObjectsThatAreNotTheOriginalsCarryASignAndCanBeSeenAlone) {
  open();
  ObjectTreeModel& tree = window->objects();
  auto& view = get<QTreeView>("TVMenu");
  auto& filter = get<QAction>("onlyChanged");
  const QModelIndex jeep = tree.find("Object\\FactionUnit.ini", "Jeep");
  const QModelIndex hut = tree.find("Object\\FactionUnit.ini", "Hut");
  const QModelIndex gone = tree.index(1, 0);
  const auto hidden = [&](const QModelIndex& node) { return view.isRowHidden(node.row(), node.parent()); };
  EXPECT_FALSE(filter.isEnabled()) << "nothing was compared yet";
  window->showProblems("1 error, 0 warnings", {{"Object\\FactionUnit.ini", "Jeep", "bad"}});
  window->showChanges({{{"object\\FACTIONUNIT.ini", "jeep", "BuildCost: 1 to 2"}}});
  EXPECT_EQ(jeep.data(), "Jeep");
  EXPECT_EQ(jeep.data(ObjectTreeModel::signsRole).toStringList(), QStringList({"error", "changed"}));
  EXPECT_EQ(jeep.data(Qt::AccessibleDescriptionRole), "bad\nBuildCost: 1 to 2");
  EXPECT_EQ(hut.data(ObjectTreeModel::signsRole).toStringList(), QStringList());
  filter.trigger();
  EXPECT_FALSE(hidden(jeep));
  EXPECT_TRUE(hidden(hut));
  EXPECT_TRUE(hidden(gone)) << "nothing below it has changed";
  window->showChanges(std::nullopt);
  EXPECT_FALSE(hidden(hut) || hidden(gone) || filter.isChecked() || filter.isEnabled());
}

}  // namespace
}  // namespace korvane
