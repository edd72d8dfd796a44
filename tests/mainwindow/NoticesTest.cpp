// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>

#include "app/CatalogueService.h"
#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class NoticesTest : public MainWindow {};

TEST_F(NoticesTest, AnObjectThatIsWhatItsNameSaysNeedsNoNotice) {
  open();
  click("Jeep");
  EXPECT_TRUE(get<NoticeBar>("NoticeBar").isHidden());
}

TEST_F(NoticesTest, ABlockThatIsShownForItsLongerNameIsToldWithBothPlaces) {
  game.objects(
      "FactionUnit.ini",
      "Object JeepWreck\n  MaxHealth = 1\nEnd\nObject Jeep\n  MaxHealth = 2\nEnd\nObject Hut\nEnd\n");
  open();
  click("Jeep");
  EXPECT_EQ(text("MHealth"), "1");
  EXPECT_EQ(notices(), QStringList("These are the values of JeepWreck in line 1; Jeep stands in line 4."));
  followNotice(0, "line 4");
  ASSERT_EQ(launcher.requests.size(), 1U);
  EXPECT_EQ(launcher.requests[0].ManualEditFile, game.qpath() + "\\Data\\INI\\Object\\FactionUnit.ini");
  EXPECT_EQ(launcher.requests[0].ManualEditPartial, 0);
  EXPECT_EQ(launcher.requests[0].place.line, 4);
  click("Hut");
  EXPECT_EQ(notices(), QStringList());
}

TEST_F(NoticesTest, WhatIsNotThereOrEndsElsewhereIsTold) {
  struct Case {
    const char* file;
    const char* sentence;
  };
  constexpr Case kCases[] = {
      {"Object Hut\nEnd\n", "The file has no block of the name Jeep."},
      {"ObjectReskin Jeep Hut\nEnd\n", "Jeep is a reskin of Hut; it stands in line 1."},
      {"Object  Jeep\nEnd\n",
       "No values are found for Jeep: its header in line 1 is not written as \"Object\", one space and the "
       "name."},
      {"Object JeepX\nEnd\n",
       "These are the values of JeepX in line 1; the file has no block of the name Jeep."},
      {"Object Jeep\n  Body = ActiveBody M\n    MaxHealth = 1\nEnd\n  BuildCost = 5\nEnd\n",
       "The block ends early: an \"End\" in the first column in line 4; 2 lines behind it are not shown."},
      {"Object Jeep\n  End\nObject Hut\nEnd\n",
       "The block has no \"End\" in the first column of its own: what stands from line 3 on belongs to what "
       "follows it."},
  };
  open();
  for (const Case& c : kCases) {
    game.objects("FactionUnit.ini", c.file);
    click("Hut");
    click("Jeep");
    EXPECT_EQ(notices(), QStringList(c.sentence));
  }
  click("Other");
  EXPECT_EQ(notices(), QStringList());
}

TEST_F(NoticesTest, OnceNamesAreKnownOtherDefinitionsAndUnknownNamesAreTold) {
  game.objects("FactionUnit.ini",
               "Object Jeep\n  ArmorSet\n    Armor = plate\n  End\n"
               "  WeaponSet\n    Weapon = PRIMARY Cannon\n    Weapon = SECONDARY NONE\n  End\n"
               "  Locomotor = SET_NORMAL Hover\n  Locomotor = SET_FAST HOVER\nEnd\nObject Hut\nEnd\n");
  game.ini("Armor.ini", "");
  game.objects("Mine/Jeep.ini", "\nObject jeep\nEnd\n");
  CatalogueService names(folders);
  QSignalSpy changed(&names, &CatalogueService::changed);
  open();
  window->useCatalogue(names);
  click("Jeep");
  EXPECT_EQ(notices(), QStringList());
  EXPECT_FALSE(changed.wait(400)) << "nobody has asked for the names";
  names.refresh();
  ASSERT_TRUE(changed.wait());
  EXPECT_EQ(notices(), QStringList({"Jeep is also defined in Object\\Mine\\Jeep.ini, line 2.",
                                    "The weapon 'Cannon', named in line 6, is defined nowhere.",
                                    "The locomotor 'Hover', named in line 9, is defined nowhere."}));
  followNotice(0, "Object");
  followNotice(1, "line 6");
  ASSERT_EQ(launcher.requests.size(), 2U);
  EXPECT_EQ(launcher.requests[0].ManualEditFile, game.qpath() + "\\Data\\INI\\Object\\Mine\\Jeep.ini");
  EXPECT_EQ(launcher.requests[0].place.line, 2);
  EXPECT_EQ(launcher.requests[1].place.line, 6);

  click("Hut");
  EXPECT_EQ(notices(), QStringList());
  game.ini("Weapon.ini", "Weapon Cannon\nEnd\n");
  game.ini("Locomotor.ini", "Locomotor Hover\nEnd\n");
  click("Jeep");
  EXPECT_EQ(notices().size(), 3);
  EXPECT_TRUE(QTest::qWaitFor([this] { return notices().size() == 1; }));
}

TEST_F(NoticesTest, WhatIsTypedIsMarkedUntilItIsReadAnew) {
  open();
  click("Jeep");
  auto& cost = get<QLineEdit>("TxtCost");
  auto& speed = get<QLineEdit>("HS_TextBox1");
  const auto marked = [](const QLineEdit& field) {
    EXPECT_EQ(field.font().italic(), field.toolTip() == "Not saved: typed here only");
    return field.font().italic();
  };
  cost.setFocus();
  QTest::keyClicks(&cost, "0");
  EXPECT_TRUE(marked(cost));
  EXPECT_FALSE(marked(speed));
  EXPECT_EQ(notices(), QStringList("What is typed here is not saved. Edit in file"));
  QTest::keyClick(&cost, Qt::Key_Backspace);
  EXPECT_FALSE(marked(cost));
  EXPECT_TRUE(notices().isEmpty());

  press("HS_ClearBtn1");
  choose("PWeapon", 1);
  EXPECT_TRUE(marked(speed));
  EXPECT_TRUE(marked(*get<QComboBox>("PWeapon").lineEdit()));
  EXPECT_EQ(window->typed().typed().size(), 2U);
  choose("Conditions", 1);
  EXPECT_FALSE(marked(*get<QComboBox>("PWeapon").lineEdit()));
  choose("CboLoco", 1);
  EXPECT_TRUE(notices().isEmpty());

  int edits = 0;
  window->typed().setEditInFile([&] { ++edits; });
  QTest::keyClicks(&cost, "7");
  followNotice(0, "Edit in file");
  EXPECT_EQ(edits, 1);
  click("Jeep");
  EXPECT_FALSE(marked(cost));
  EXPECT_TRUE(notices().isEmpty());
}

TEST_F(NoticesTest, TheDisabledTabBoxSaysWhoseValuesItShows) {
  open();
  click("Other");
  EXPECT_EQ(get<QTabWidget>("F_Tab").toolTip(), "");
  click("Jeep");
  click("Other");
  EXPECT_EQ(get<QTabWidget>("F_Tab").toolTip(), "These are the values of Jeep");
  click("Hut");
  EXPECT_EQ(get<QTabWidget>("F_Tab").toolTip(), "");
}

}  // namespace
}  // namespace korvane
