// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class InformationListTest : public MainWindow {};

TEST_F(InformationListTest, SumsUpAnObject) {
  open();
  click("Jeep");
  EXPECT_EQ(information(), (QStringList{"Name|Jeep",
                                        "-",
                                        "Initial Health|200",
                                        "Max Health|240.05",
                                        "|",
                                        "Cost|$1,500",
                                        "Build Speed|8.5",
                                        "-",
                                        "Shroud Clearing Range|300",
                                        "Vision Range|150",
                                        "-",
                                        "|",
                                        "Primary Weapon|Gun",
                                        "Secondary Weapon|Rocket",
                                        "Tertiary Weapon|N/A",
                                        "|",
                                        "Locomotor|Wheels, Tracks",
                                        "-",
                                        "Surfaces|GROUND",
                                        "|",
                                        "Top Speed|40 dist/sec",
                                        "Top Speed When Damaged|22.5 dist/sec",
                                        "|",
                                        "Turn Rate|-90 degrees/sec",
                                        "Turn Rate When Damaged| degrees/sec",
                                        "|",
                                        "Acceleration| dist/(sec^2)",
                                        "Acceleration When Damaged| dist/(sec^2)",
                                        "|",
                                        "Braking| dist/(sec^2)",
                                        "Min Turn Speed| dist/sec"}));
  for (int i = 0; i < get<InPlaceTable>("LstInfo").rowCount(); ++i) {
    EXPECT_TRUE(get<InPlaceTable>("LstInfo").row(i).redAndBold) << i;
  }
}

TEST_F(InformationListTest, FollowsWhatIsTyped) {
  open();
  click("Jeep");
  get<QLineEdit>("IHealth").setText("7");
  EXPECT_EQ(informationOf("Initial Health"), "7");
  get<QLineEdit>("IHealth").setText("\t");
  EXPECT_EQ(informationOf("Initial Health"), "\t");
  get<QLineEdit>("TxtCost").setText("  ");
  EXPECT_EQ(informationOf("Cost"), "N/A");
  get<QLineEdit>("TxtCost").setText("1,500");
  EXPECT_EQ(informationOf("Cost"), "$1,500");
  get<QLineEdit>("TxtCost").setText("many");
  EXPECT_EQ(informationOf("Cost"), "m");
  for (const char* noCost : {"nan", "inf"}) {
    get<QLineEdit>("TxtCost").setText(noCost);
    EXPECT_EQ(informationOf("Cost"), "") << noCost;
  }
  press("HS_ClearBtn0");
  EXPECT_EQ(informationOf("Surfaces"), "N/A");
}

TEST_F(InformationListTest, ACostTooShortForItsCentsEndsTheFirstStage) {
  open();
  click("Jeep");
  get<QLineEdit>("TxtCost").setText("x");
  EXPECT_EQ(informationOf("Cost"), "");
  EXPECT_EQ(informationOf("Build Speed"), "no row");
  EXPECT_EQ(informationOf("Primary Weapon"), "no row");
  EXPECT_EQ(informationOf("Locomotor"), "Wheels, Tracks");
  EXPECT_EQ(informationOf("Top Speed"), "40 dist/sec");
}

TEST_F(InformationListTest, AKeyThatStandsTwiceKeepsItsUnit) {
  game.ini("Locomotor.ini", "Locomotor Wheels\n  Speed = 40\n  Speed = 50\nEnd\n");
  open();
  click("Jeep");
  EXPECT_EQ(informationOf("Top Speed"), "40\r\n50 dist/sec");
}

TEST_F(InformationListTest, WithoutLocomotorsThereIsNoLocomotorRow) {
  open();
  click("Hut");
  EXPECT_EQ(informationOf("Locomotor"), "no row");
  EXPECT_EQ(informationOf("Cost"), "N/A");
  EXPECT_EQ(informationOf("Surfaces"), "N/A");
}

}  // namespace
}  // namespace korvane
