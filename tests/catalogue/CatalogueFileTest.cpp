// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "catalogue/CatalogueFile.h"
#include "support/SlowCatalogue.h"

namespace korvane {

namespace {

using Texts = std::vector<std::string>;

std::shared_ptr<const CatalogueFile> Read(std::string_view text) {
  return CatalogueFile::read({}, text);
}

Texts Facts(std::string_view text) {
  return FactsOf(*Read(text));
}

// The uses alone, in the order of the text: "line:column Space Name".
Texts Uses(std::string_view text) {
  const auto file = Read(text);
  Texts uses;
  for (const auto& use : file->uses())
    uses.push_back(std::to_string(use.line) + ':' + std::to_string(use.column) + ' ' +
                   std::string(GameStructure::get().spaces()[file->space(use.name)]) + ' ' +
                   std::string(file->name(use.name)));
  return uses;
}

struct Case {
  const char* what;
  const char* text;
  Texts uses;
};

class NamesInText : public testing::TestWithParam<Case> {};

TEST_P(NamesInText, AreFoundWhereTheyStand) {
  EXPECT_EQ(Uses(GetParam().text), GetParam().uses) << GetParam().what;
}

const Case kCases[] = {
    {"one word", "Weapon A\n FireFX = FX_A FX_B ; FX_C\nEnd", {"2:11 FXList FX_A"}},
    {"a word behind a slot or a phase",
     "Object A\n WeaponSet\n  Weapon PRIMARY Gun\n End\n Behavior = SlowDeathBehavior T\n  FX = INITIAL "
     "FX_A\n End\nEnd",
     {"3:18 Weapon Gun", "6:16 FXList FX_A"}},
    {"the same key in another module",
     "Object A\n Behavior = InstantDeathBehavior T\n  FX = FX_A FX_B\n End\nEnd",
     {"3:8 FXList FX_A", "3:13 FXList FX_B"}},
    {"all words",
     "CommandButton A\n Science = S1 S2  S3//x //S4\nEnd",
     {"2:12 Science S1", "2:15 Science S2", "2:19 Science S3//x"}},
    {"two kinds in one value",
     "Object A\n Behavior = RiderChangeContain T\n  Rider1 = Bike C W S Set L\n End\nEnd",
     {"3:12 Object Bike", "3:23 CommandSet Set"}},
    {"behind a label",
     "Object A\n Behavior = TransitionDamageFX T\n  DamagedParticleSystem3 = Bone:None PSYS:Smoke\n"
     "  RubbleOCL9 = Bone:None ocl: Debris\n  DamagedOCL1 = ocl:\n End\nEnd",
     {"3:43 ParticleSystem Smoke", "4:31 ObjectCreationList Debris"}},
    {"words that are no names",
     "Weapon A\n FireSound = nosound\n FireFX = NONE\n FireOCL = NoSound\nEnd",
     {"4:12 ObjectCreationList NoSound"}},
    {"headers",
     "ObjectReskin A B\nEnd\nAIData\n SkirmishBuildList America\n  Structure Barracks\n  End\n End\nEnd",
     {"1:16 Object B", "5:13 Object Barracks"}},
    {"words in quotation marks",
     "Object A\n Draw = W3DModelDraw T\n  ConditionState = NONE\n   ParticleSysBone = \"a bone\" Dust\n  "
     "End\n End\nEnd",
     {"4:31 ParticleSystem Dust"}},
    {"a reskin has what an object has",
     "ObjectReskin A B\n CommandSet = C\nEnd",
     {"1:16 Object B", "2:15 CommandSet C"}},
    {"nothing outside of blocks and in unknown keys",
     "FireFX = A\nWeapon W\n FireFXX = A\nEnd\n FireFX = A",
     {}},
};

INSTANTIATE_TEST_SUITE_P(Catalogue, NamesInText, testing::ValuesIn(kCases));

constexpr std::string_view kTank =
    "Object Tank\n"
    "  Body = ActiveBody Tag_1 ; x\n"
    "    MaxHealth = 1\n"
    "  End\n"
    "  WeaponSet\n"
    "    Weapon = PRIMARY Gun\n"
    "    Weapon = SECONDARY GUN\n"
    "  End\n"
    "  CommandSet = Tank\n"
    "End\n"
    "Weapon Gun\n"
    "End\n";

TEST(CatalogueFile, KnowsBlocksAndWhatStandsInThem) {
  const auto file = Read(kTank);
  ASSERT_EQ(file->blocks().size(), 4U);
  EXPECT_EQ(file->header(0), "Object Tank");
  EXPECT_EQ(file->header(1), "Body = ActiveBody Tag_1");
  EXPECT_EQ(file->header(2), "WeaponSet");
  EXPECT_EQ(file->blockAt(6), 2U);
  EXPECT_EQ(file->blockAt(9), 0U);
  EXPECT_EQ(file->blockAt(13), CatalogueFile::kNone);
  EXPECT_EQ(file->outermost(2), 0U);
  EXPECT_EQ(file->usesIn(0).size(), 3U);
  EXPECT_EQ(file->usesIn(2).size(), 2U);
  EXPECT_EQ(file->usesIn(3).size(), 0U);
}

TEST(CatalogueFile, KeepsEverySpellingOfAName) {
  const auto file = Read(kTank);
  const GameStructure& structure = GameStructure::get();
  const auto spellings = file->spellings(structure.space("Weapon"), "gUN");
  ASSERT_EQ(spellings.size(), 2U);
  EXPECT_EQ(file->name(spellings[0]), "Gun");
  EXPECT_EQ(file->definitionsOf(spellings[0]).size(), 1U);
  EXPECT_EQ(file->usesOf(spellings[0]).size(), 1U);
  EXPECT_EQ(file->name(spellings[1]), "GUN");
  EXPECT_EQ(file->definitionsOf(spellings[1]).size(), 0U);
  EXPECT_EQ(file->usesOf(spellings[1]).size(), 1U);
  EXPECT_EQ(file->spellings(structure.space("Object"), "Gun").size(), 0U);
  EXPECT_EQ(file->spellings(kNoSpace, "tank").size(), 2U);  // an object and a command set
}

TEST(CatalogueFile, AgreesWithASlowTwin) {
  for (const Case& each : kCases) EXPECT_EQ(Facts(each.text), SlowFacts(each.text)) << each.what;
  EXPECT_EQ(Facts(kTank), SlowFacts(kTank));
}

// Lines that open, fill and close blocks, put together without sense.
std::string RandomText(std::mt19937& random) {
  static constexpr const char* kPieces[] = {"Object A",
                                            "object b ; c",
                                            "ObjectReskin A B",
                                            "Weapon",
                                            "Weapon W",
                                            "FXList F",
                                            "End",
                                            "End",
                                            "End",
                                            "END ;x",
                                            "Draw = W3DModelDraw T",
                                            "Draw = New",
                                            "Body",
                                            "Behavior = SlowDeathBehavior T",
                                            "Behavior InstantDeathBehavior T",
                                            "Behavior = TransitionDamageFX T",
                                            "ConditionState = X Y",
                                            "ConditionState A",
                                            "DefaultConditionState",
                                            "WeaponSet",
                                            "Weapon = PRIMARY Gun",
                                            "Turret",
                                            "Turret = T",
                                            "InheritableModule",
                                            "ParticleSystem",
                                            "ParticleSystem P",
                                            "Name = Dust",
                                            "FX = INITIAL FX_A FX_B",
                                            "OCL = FINAL OCL_A",
                                            "TriggeredBy = U1 None U2",
                                            "GameData",
                                            "Sound",
                                            "ObjectCreationList O",
                                            "DeliverPayload",
                                            "FireWeapon",
                                            "FireWeapon = Yes",
                                            "Payload = Tank 3",
                                            "DeliveryDecal",
                                            "RubbleFXList12 = fxlist: A FXLIST:B",
                                            "ParticleSysBone = \"a b\" P //c",
                                            "LODPreset = LOW",
                                            "CommandSet C",
                                            "1 = Command_A",
                                            "19 = Command_A",
                                            "Science S",
                                            "Science = S",
                                            "ChallengeGenerals",
                                            "GeneralPersona7",
                                            "//",
                                            ";",
                                            "Campaign = None",
                                            "MappedImage A End",
                                            "loose words",
                                            "Armor = NONE",
                                            "ArmorSet",
                                            "FireSound = NOSOUND",
                                            "<header> A B",
                                            "Object = A",
                                            "Prerequisites",
                                            "SkirmishBuildList X",
                                            "AIData",
                                            "Structure S"};
  static constexpr const char* kEnds[] = {"\r\n", "\n", "\r", "\r\n", "\r\n\r\n"};
  static constexpr const char* kIndents[] = {"", "", " ", "\t", "    "};
  const auto pick = [&](const auto& from) { return from[random() % std::size(from)]; };
  std::string text;
  for (auto lines = random() % 40; lines > 0; --lines)
    text.append(pick(kIndents)).append(pick(kPieces)).append(pick(kEnds));
  return text;
}

TEST(CatalogueFile, AgreesWithASlowTwinOnTextsWithoutSense) {
  std::mt19937 random(20261123);
  for (int i = 0; i < 500; ++i) {
    std::string text = RandomText(random);
    if (!text.empty() && i % 3 == 0) text[random() % text.size()] = static_cast<char>(random());
    ASSERT_EQ(Facts(text), SlowFacts(text)) << text;
  }
}

TEST(CatalogueFile, StopsWhenAsked) {
  std::string text;
  for (int i = 0; i < 10'000; ++i) text += "Weapon A\nEnd\n";
  std::stop_source stop;
  EXPECT_NE(CatalogueFile::read({}, text, stop.get_token()), nullptr);
  stop.request_stop();
  EXPECT_EQ(CatalogueFile::read({}, text, stop.get_token()), nullptr);
}

}  // namespace

}  // namespace korvane
