// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "catalogue/ObjectTreeBuilder.h"
#include "mainwindow/ObjectTreeModel.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

class ObjectTreeTest : public testing::Test {
 protected:
  void build() {
    ObjectTreeBuilder builder(
        [this](const TreeEntry& entry) {
          if (!tree.addNode(entry.key, entry.text, entry.parentKey, entry.tag)) return false;
          placed.push_back(std::string(entry.parentKey) + '/' + std::string(entry.text) + ' ' +
                           std::string(entry.key) + ' ' + std::string(entry.tag));
          return true;
        },
        [] {});
    builder.BuildObjectTree(
        game.path(), [this](double percent) { progress.push_back(percent); }, [] {});
    placed.erase(placed.begin(), placed.begin() + kSkeleton);
  }

  static constexpr int kSkeleton = 128;
  GameFolder game;
  ObjectTreeModel tree;
  std::vector<std::string> placed;  // objects: parent's key/text, key, tag
  std::vector<double> progress;
};

TEST_F(ObjectTreeTest, PlacesObjectsByFileAndName) {
  game.objects(
      "FactionUnit.ini",
      "Object AmericaTank\n  Object Inner\nobject Small\nEnd\nObject GLABike ; fast\nObject ChinaTruck\n"
      "Object CINETank\nObject Cinematic\nObject americaTank\nObject  Two\nObject\nObject\tTab\n");
  game.objects("FactionBuilding.ini", "ObjectReskin GLAHut GLAOther\nObject Wall\n");
  game.objects("FactionProp.ini", "Object AmericaFlag\n");
  game.objects("CivilianBuilding.ini", "Object 7Eleven\nObject Church\nObject church2\nObject _Hidden\n");
  game.objects("CivilianUnit.ini", "Object Zebra\nObject \xc9lan\nObject  Gap\nObject Car\n");
  game.objects("CivilianProp.ini", "Object Bin\n");
  game.objects("NatureProp.ini", "Object 1Rock\n");
  game.objects("NatureUnit.ini", "Object Wolf\n");
  build();
  EXPECT_EQ(placed, (std::vector<std::string>{
                        "FUAmerica/AmericaTank Key1 FactionUnit.ini", "FUGLA/GLABike Key2 FactionUnit.ini",
                        "FUChina/ChinaTruck Key3 FactionUnit.ini", "FUCINE/CINETank Key4 FactionUnit.ini",
                        "FUOther/Cinematic Key5 FactionUnit.ini", "FUOther/americaTank Key6 FactionUnit.ini",
                        "FUOther/ Key7 FactionUnit.ini", "FBGLA/GLAHut Key8 FactionBuilding.ini",
                        "FBOther/Wall Key9 FactionBuilding.ini", "FactionProp.ini/AmericaFlag Key10 ",
                        "CB09/7Eleven Key11 CivilianBuilding.ini", "CBC/Church Key12 CivilianBuilding.ini",
                        "CBc/church2 Key13 CivilianBuilding.ini", "CUZ/Zebra Key15 CivilianUnit.ini",
                        "CUC/Car Key18 CivilianUnit.ini", "CPB/Bin Key19 CivilianProp.ini",
                        "NP09/1Rock Key20 NatureProp.ini", "NatureUnit.ini/Wolf Key21 NatureUnit.ini"}));
  EXPECT_EQ(progress, (std::vector<double>{12.5, 25, 37.5, 50, 62.5, 75, 87.5, 100}));
  const QModelIndex civilian = tree.index(4, 0);
  EXPECT_EQ(civilian.data().toString(), "Civilian Buildings");
  EXPECT_EQ(tree.rowCount(tree.index(3, 0, civilian)), 2);  // both letter cases of C
}

TEST_F(ObjectTreeTest, AMissingFileHasNoEffectOnTheOthers) {
  game.objects("FactionUnit.ini", "Object Tank\n");
  game.objects("CivilianUnit.ini", "Object Car\n");
  build();
  EXPECT_EQ(placed.size(), 2U);
  EXPECT_EQ(progress, (std::vector<double>{12.5, 25}));
}

TEST_F(ObjectTreeTest, AnEmptyGameFolderHasTheSkeletonOnly) {
  build();
  EXPECT_TRUE(placed.empty());
  EXPECT_EQ(tree.rowCount(), 10);
  EXPECT_EQ(tree.index(1, 0).data().toString(), "Player Units");
  EXPECT_EQ(tree.node(tree.index(3, 0, tree.index(1, 0)))->key, "FUCINE");
  EXPECT_EQ(tree.node(tree.index(26, 0, tree.index(8, 0)))->key, "NPZ");
}

}  // namespace
}  // namespace korvane
