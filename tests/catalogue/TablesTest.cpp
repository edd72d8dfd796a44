// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "catalogue/GameStructure.h"
#include "catalogue/Tables.h"

namespace korvane {

namespace {

using Row = std::vector<std::string>;

Row Fields(const std::string& line) {
  Row fields(1);
  for (const char byte : line) {
    if (byte == '\t') {
      fields.emplace_back();
    } else {
      fields.back() += byte;
    }
  }
  return fields;
}

std::vector<Row> RowsOf(const std::string& table) {
  std::ifstream file(std::string(KORVANE_TABLES) + '/' + table + ".tsv");
  std::vector<Row> rows;
  for (std::string line; std::getline(file, line);) rows.push_back(Fields(line));
  if (!rows.empty()) rows.erase(rows.begin());
  return rows;
}

template <typename Rows, typename ToFields>
void ExpectSame(const std::string& table, const Rows& compiled, ToFields toFields) {
  const std::vector<Row> written = RowsOf(table);
  ASSERT_FALSE(written.empty()) << table;
  ASSERT_EQ(compiled.size(), written.size()) << table;
  for (std::size_t i = 0; i < written.size(); ++i) {
    const auto fields = toFields(compiled[i]);
    EXPECT_EQ(Row(fields.begin(), fields.end()), written[i]) << table << ", row " << i + 1;
  }
}

using Views = std::vector<std::string_view>;

const GameStructure& Game() {
  return GameStructure::get();
}

BlockTypeId TypeAt(std::string_view path) {
  const auto types = Game().types();
  const auto found = std::find_if(types.begin(), types.end(), [&](auto& type) { return type.path == path; });
  return found == types.end() ? kNoBlockType : static_cast<BlockTypeId>(found - types.begin());
}

}  // namespace

TEST(Tables, AreThoseOfTheFiles) {
  ExpectSame("kinds", KindRows(),
             [](auto& r) { return Views{r.kind, r.names, r.space, r.again, r.like, r.editor}; });
  ExpectSame("lines", LineRows(), [](auto& r) { return Views{r.key}; });
  ExpectSame("blocks", BlockRows(), [](auto& r) {
    return Views{r.parent, r.keyword, r.sign, r.words, r.like};
  });
  ExpectSame("keys", KeyRows(),
             [](auto& r) { return Views{r.path, r.key, r.type, r.numbers, r.repeat, r.common, r.form}; });
  ExpectSame("references", ReferenceRows(), [](auto& r) {
    return Views{r.path, r.key, r.modules, r.position, r.space};
  });
  ExpectSame("special", SpecialRows(), [](auto& r) { return Views{r.word, r.space}; });
  ExpectSame("words", WordsRows(), [](auto& r) { return Views{r.path, r.key, r.words}; });
  ExpectSame("leading", LeadingRows(), [](auto& r) {
    return Views{r.path, r.key, r.modules, r.position, r.words};
  });
  ExpectSame("outside", OutsideRows(), [](auto& r) { return Views{r.path, r.key, r.what}; });
}

TEST(Tables, NoRowIsGivenTwice) {
  std::set<Views> seen;
  for (const KeyRow& row : KeyRows())
    EXPECT_TRUE(seen.insert({row.path, row.key}).second) << row.path << row.key;
  seen.clear();
  for (const ReferenceRow& row : ReferenceRows())
    EXPECT_TRUE(seen.insert({row.path, row.key, row.modules, row.position}).second) << row.path << row.key;
}

// Every row must have found its way into the structure, or the row says nothing.
TEST(Tables, TheStructureKnowsEveryRow) {
  for (const KeyRow& row : KeyRows()) {
    const KeyFacts* facts = Game().key(TypeAt(row.path), row.key);
    ASSERT_NE(facts, nullptr) << row.path << ' ' << row.key;
    EXPECT_TRUE(facts->known && facts->key == row.key && facts->numbers == row.numbers[0] - '0') << row.path;
    EXPECT_EQ(facts->common, row.common == "yes") << row.path << ' ' << row.key;
    EXPECT_EQ(facts->form, row.form == "yes") << row.path << ' ' << row.key;
  }
  for (const ReferenceRow& row : ReferenceRows()) {
    EXPECT_NE(Game().space(row.space), kNoSpace) << row.space;
    const BlockTypeId type = TypeAt(row.path);
    ASSERT_NE(type, kNoBlockType) << row.path;
    const KeyFacts* facts =
        row.key == "<header>"
            ? Game().header(type)
            : Game().key(Game().withModule(type, row.modules.substr(0, row.modules.find(','))), row.key);
    ASSERT_NE(facts, nullptr) << row.path << ' ' << row.key;
    EXPECT_TRUE(std::any_of(facts->references.begin(), facts->references.end(),
                            [&](const Reference& each) {
                              return Game().spaces()[each.space] == row.space &&
                                     (each.label == row.position || each.first == row.position[0] - '0');
                            }))
        << row.path << ' ' << row.key;
  }
}

TEST(GameStructure, ReferencesOfCertainModulesHoldOnlyThere) {
  const BlockTypeId any = TypeAt("Object/Behavior=*");
  const auto positionOfWeapon = [&](std::string_view module) {
    const KeyFacts* facts = Game().key(Game().withModule(any, module), "Weapon");
    return facts == nullptr || facts->references.empty() ? 0 : int{facts->references.front().first};
  };
  EXPECT_EQ(positionOfWeapon("FireWeaponUpdate"), 1);
  EXPECT_EQ(positionOfWeapon("slowdeathbehavior"), 2);
  EXPECT_EQ(positionOfWeapon("NeverHeardOf"), 0);
  EXPECT_EQ(Game().withModule(any, "NeverHeardOf"), any);
  ASSERT_NE(Game().key(any, "DeathWeapon"), nullptr);  // of any module
  EXPECT_FALSE(Game().key(any, "DeathWeapon")->known);
}

TEST(GameStructure, SeriesAndLikenesses) {
  const BlockTypeId reskin = TypeAt("ObjectReskin");
  const BlockTypeId behaviour = Game().child(reskin, "behavior");
  EXPECT_EQ(Game().type(behaviour).path, "Object/Behavior=*");
  const KeyFacts* series = Game().key(Game().withModule(behaviour, "TransitionDamageFX"), "DamagedFXList77");
  ASSERT_NE(series, nullptr);
  ASSERT_EQ(series->references.size(), 1U);
  EXPECT_EQ(series->references.front().label, "fxlist:");
  EXPECT_EQ(Game().type(Game().child(TypeAt("ChallengeGenerals"), "GeneralPersona11")).path,
            "ChallengeGenerals/GeneralPersona#");
  EXPECT_EQ(Game().child(TypeAt("ChallengeGenerals"), "GeneralPersona"), kNoBlockType);
}

TEST(GameStructure, SoundsShareTheirNamesAndReskinsAreObjects) {
  const auto spaceOf = [](std::string_view kind) { return Game().kinds()[Game().kind(kind)].space; };
  EXPECT_EQ(spaceOf("AudioEvent"), spaceOf("MusicTrack"));
  EXPECT_EQ(spaceOf("DialogEvent"), Game().space("audio"));
  EXPECT_EQ(spaceOf("ObjectReskin"), spaceOf("Object"));
  EXPECT_EQ(spaceOf("GameData"), kNoSpace);
  EXPECT_EQ(Game().kind("FXListAtBonePos"), kNoKind);
  EXPECT_TRUE(Game().isSpecial("NOSOUND", spaceOf("AudioEvent")));
  EXPECT_FALSE(Game().isSpecial("NoSound", spaceOf("Object")));
  EXPECT_TRUE(Game().isSpecial("none", spaceOf("Weapon")));
}

TEST(GameStructure, OffersWhatMayStandInABlock) {
  const BlockTypeId state =
      Game().child(Game().withModule(TypeAt("Object/Draw=*"), "W3DTankDraw"), "ConditionState");
  EXPECT_EQ(Game().type(state).path, "Object/Draw=W3DTankDraw/ConditionState");
  const auto keys = Game().keysOf(state);
  EXPECT_TRUE(std::any_of(keys.begin(), keys.end(), [](auto* each) { return each->key == "Model"; }));
  EXPECT_TRUE(std::none_of(keys.begin(), keys.end(), [](auto* each) { return each->key == "BuildCost"; }));
  const auto blocks = Game().childrenOf(TypeAt("Object/Draw=W3DTankDraw"));
  EXPECT_EQ(blocks.size(), 3U);
  EXPECT_NE(std::find(blocks.begin(), blocks.end(), state), blocks.end());
}

}  // namespace korvane
