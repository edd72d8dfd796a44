// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "catalogue/LineEnds.h"
#include "catalogue/ObjectTreeBuilder.h"
#include "files/FilePieces.h"
#include "mainwindow/ObjectTreeModel.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

class ObjectTreeTest : public testing::Test {
 protected:
  void build() {
    ObjectTreeBuilder builder(
        [this](const TreeEntry& entry) {
          if (!tree.addNode(entry)) return false;
          placed.push_back(std::string(entry.parentKey) + '/' + std::string(entry.text) + ' ' +
                           std::string(entry.key) + ' ' + std::string(entry.tag));
          return true;
        },
        [] {});
    builder.BuildObjectTree(
        game.path(), [this](double percent) { progress.push_back(percent); }, [] {});
    placed.erase(placed.begin(), placed.begin() + kSkeleton);
    otherUnixFiles = builder.otherUnixFiles();
  }

  static constexpr int kSkeleton = 128;
  GameFolder game;
  ObjectTreeModel tree;
  std::vector<std::string> placed;  // objects: parent's key/text, key, tag
  std::vector<double> progress;
  std::vector<UnixFile> otherUnixFiles;
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

TEST_F(ObjectTreeTest, OtherFilesComeLastWithTheirObjectsInTheOrderOfTheirPaths) {
  game.objects("FactionUnit.ini", "Object Tank\n");
  game.objects("NatureUnit.ini", "Object Wolf\n");
  game.objects("beta.ini", "Object Beta1\nEnd\n");
  game.objects("Zulu/Deep/units.INI", "; first\nObject Deep1\nEnd\nObjectReskin Deep2 Deep1\nEnd\n");
  game.objects("alpha.ini", "Object Alpha2 ; tanks\nEnd\nObject\tAlpha1;old\nEnd\n");
  game.objects("Notes.txt", "Object Note\nEnd\n");
  game.objects("Lists.ini",
               "ObjectCreationList OCL_One\nEnd\n  Object Inner\nobject small\nObject\nObject ;x\n");
  game.ini("Crate.ini", "Object Crate\nEnd\n");
  game.ini("Default/Object.ini", "Object Default\nEnd\n");
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  build();
  EXPECT_EQ(placed,
            (std::vector<std::string>{
                "FUOther/Tank Key1 FactionUnit.ini", "NatureUnit.ini/Wolf Key2 NatureUnit.ini", "/ Sep3 ",
                "/Other Files OtherFiles ", "OtherFiles/alpha.ini OF1 Object\\alpha.ini",
                "OF1/Alpha2 OFKey1 Object\\alpha.ini", "OF1/Alpha1 OFKey2 Object\\alpha.ini",
                "OtherFiles/beta.ini OF2 Object\\beta.ini", "OF2/Beta1 OFKey3 Object\\beta.ini",
                "OtherFiles/Zulu\\Deep\\units.INI OF3 Object\\Zulu\\Deep\\units.INI",
                "OF3/Deep1 OFKey4 Object\\Zulu\\Deep\\units.INI",
                "OF3/Deep2 OFKey5 Object\\Zulu\\Deep\\units.INI", "OtherFiles/INI\\Crate.ini OF4 Crate.ini",
                "OF4/Crate OFKey6 Crate.ini", "OtherFiles/INI\\Default\\Object.ini OF5 Default\\Object.ini",
                "OF5/Default OFKey7 Default\\Object.ini"}));
  EXPECT_TRUE(otherUnixFiles.empty());
}

TEST_F(ObjectTreeTest, AFileWithUnixLineEndsIsCountedAndWhatCannotBeReadIsNotListed) {
  game.write("Data/INI/Object/Lf.ini", "; one\nObject One\nEnd\nObject Two\nEnd\n");
  game.write("Data/INI/Object/Mixed.ini", "Object A\r\nEnd\r\nObject B\nEnd\r\rObject C\rEnd");
  game.write("Data/INI/Particles.ini", "ParticleSystem Smoke\nEnd\n");
  build();
  EXPECT_EQ(placed, (std::vector<std::string>{
                        "/ Sep3 ", "/Other Files OtherFiles ", "OtherFiles/Mixed.ini OF1 Object\\Mixed.ini",
                        "OF1/A OFKey1 Object\\Mixed.ini", "OF1/B OFKey2 Object\\Mixed.ini",
                        "OF1/C OFKey3 Object\\Mixed.ini"}));
  ASSERT_EQ(otherUnixFiles.size(), 2U);
  EXPECT_EQ(otherUnixFiles[0].path, "Object\\Lf.ini");
  EXPECT_EQ(otherUnixFiles[0].lineEnds.lf, 5U);
  EXPECT_FALSE(otherUnixFiles[0].lineEnds.hasOther);
  EXPECT_EQ(otherUnixFiles[1].lineEnds.lf, 1U);
  EXPECT_TRUE(otherUnixFiles[1].lineEnds.hasOther);
}

TEST_F(ObjectTreeTest, ALineEndAcrossTwoPiecesOfAFileIsOne) {
  game.write("Data/INI/Weapon.ini", std::string(FilePieces::kPiece - 1, ' ') + "\r\nWeapon A\r\nEnd\r\n");
  EXPECT_TRUE(DataFilesWithUnixLineEnds(game.path()).empty());
}

TEST_F(ObjectTreeTest, LongLinesAndManyLinesOfOtherFilesAreReadInPieces) {
  std::string bytes(3'000'000, 'x');
  bytes += "\r\nObject Behind\r\nEnd\r\n";
  for (int i = 0; i < 40'000; ++i) bytes += "  Key = Value of some length\r\n";
  bytes += "Object Last";
  game.write("Data/INI/Object/Long.ini", bytes);
  build();
  ASSERT_EQ(placed.size(), 5U);
  EXPECT_EQ(placed[3], "OF1/Behind OFKey1 Object\\Long.ini");
  EXPECT_EQ(placed[4], "OF1/Last OFKey2 Object\\Long.ini");
  EXPECT_TRUE(otherUnixFiles.empty());
}

}  // namespace
}  // namespace korvane
