// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>

#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

// Writes down what it is told: "+Weapon@1:1", "key@2:3 value", "-2" (an End in line 2) or "-~2" (none),
// "!open", "!end", "!loose", "(...)" around what follows another fault.
class Scribe : public StructureSink {
 public:
  void blockBegins(const BlockHeader& block) override {
    add("+" + GameStructure::get().type(block.type).path + at(block.place));
    if (!block.first.text.empty()) text += " " + std::string(block.first.text);
    if (!block.second.text.empty()) text += "," + std::string(block.second.text);
  }
  void keyFound(const KeyLine& key) override {
    add(std::string(key.key.text) + (key.facts == nullptr ? "?" : "") + at(key.place));
    WordReader words = key.words();
    for (TextWord word = words.next(); !word.text.empty(); word = words.next())
      text += " " + std::string(word.text) + ":" + std::to_string(word.column);
  }
  void blockEnds(const BlockHeader&, const BlockEnd& end) override {
    add((end.closed ? "-" : "-~") + std::to_string(end.lastLine));
  }
  void faultFound(const StructureFault& fault) override {
    static constexpr const char* kNames[] = {"!open", "!end", "!loose"};
    std::string told = kNames[static_cast<int>(fault.kind)] + at(fault.place);
    for (const BlockHeader& block : fault.open) told += " " + std::string(block.keyword.text);
    if (fault.parent != nullptr) told += " in " + std::string(fault.parent->keyword.text);
    add(fault.follows ? "(" + told + ")" : told);
  }

  std::string text;

 private:
  static std::string at(const TextPlace& place) {
    return "@" + std::to_string(place.line) + ":" + std::to_string(place.column);
  }
  void add(const std::string& told) { text += (text.empty() ? "" : "|") + told; }
};

std::string Told(std::string_view text) {
  Scribe scribe;
  EXPECT_TRUE(ReadStructure(text, scribe));
  return scribe.text;
}

struct Case {
  const char* what;
  std::string_view text;
  const char* told;
};

class StructureReading : public testing::TestWithParam<Case> {};

TEST_P(StructureReading, TellsWhatIsThere) {
  EXPECT_EQ(Told(GetParam().text), GetParam().told) << GetParam().what;
}

constexpr Case kSound[] = {
    {"nothing", "", ""},
    {"only blanks and comments", " ; a\n\t// End\n\n;Weapon A\nEnd0", "!loose@5:1"},
    {"keys with and without =", "Weapon A\n FireFX=X\n FireFX Y\n\tFireFX =  Z  ; no\nEnd",
     "+Weapon@1:1 A|FireFX@2:2 X:9|FireFX@3:2 Y:9|FireFX@4:2 Z:12|-5"},
    {"every kind of line end", "Weapon A\r\nFireFX = X\rFireFX = Y\nEND\r\n\rWeapon B\nend",
     "+Weapon@1:1 A|FireFX@2:1 X:10|FireFX@3:1 Y:10|-4|+Weapon@6:1 B|-7"},
    {"a CR at the very end", "Weapon A\rEnd\r", "+Weapon@1:1 A|-2"},
    {"slashes begin a comment only where a word begins", "Weapon A//b // c\n FireFX = x//y //z\nEnd//",
     "+Weapon@1:1 A//b|FireFX@2:2 x//y:11|End//?@3:1|!open@3:1 Weapon|-~3"},
    {"one letter case is as good as another", "wEAPON A\n firefx = X\neNd",
     "+Weapon@1:1 A|firefx@2:2 X:11|-3"},
    {"several names, one of them at most is meant", "MappedImage A End\nEnd\nObjectReskin B C\nEnd",
     "+MappedImage@1:1 A,End|-2|+ObjectReskin@3:1 B,C|-4"},
    {"kinds without names", "GameData\n Windowed = No\nEnd\n  Credits ; x\nBlank\nEnd",
     "+GameData@1:1|Windowed?@2:2 No:13|-3|+Credits@4:3|Blank@5:1|-6"},
    {"lines outside of blocks", "LODPreset = LOW\nWeapon A\nEnd", "LODPreset@1:1 LOW:13|+Weapon@2:1 A|-3"},
    {"blocks in blocks and modules",
     "Object A\n Draw = W3DModelDraw Tag\n  ConditionState = X Y\n  End\n ENd\n Behavior = New T\n  Turret\n "
     " End\n End\nEnd",
     "+Object@1:1 A|+Object/Draw=W3DModelDraw@2:2 W3DModelDraw,Tag|+Object/Draw=W3DModelDraw/"
     "ConditionState@3:3 X,Y|-4|-5|+Object/Behavior=*@6:2 New,T|+Object/Behavior=*/Turret@7:3|-8|-9|-10"},
    {"a word that opens a block only without =",
     "ObjectCreationList A\n DeliverPayload\n  FireWeapon = Yes\n End\n FireWeapon\n  Weapon = W\n End\nEnd",
     "+ObjectCreationList@1:1 A|+ObjectCreationList/DeliverPayload@2:2|FireWeapon@3:3 Yes:16|-4|"
     "+ObjectCreationList/FireWeapon@5:2|Weapon@6:3 W:12|-7|-8"},
    {"a nested block in the first column", "FXList A\nParticleSystem \n Name = X\nEnd\nEnd",
     "+FXList@1:1 A|+FXList/ParticleSystem@2:1|Name@3:2 X:9|-4|-5"},
    {"an indented header", "Weapon A\nEnd\n  Weapon B\n End", "+Weapon@1:1 A|-2|+Weapon@3:3 B|-4"},
    {"a byte order mark", "\xEF\xBB\xBFWeapon A\nEnd", "+Weapon@1:4 A|-2"},
    {"bytes that are no text", {"Weapon A\0B\x80\xFF\n\0\nEnd", 18}, "+Weapon@1:1 A,B\x80\xFF|-3"},
};

constexpr Case kFaulty[] = {
    {"a lost End before a header", "Weapon A\n FireFX = X\nWeapon B\nEnd",
     "+Weapon@1:1 A|FireFX@2:2 X:11|!open@3:1 Weapon|-~2|+Weapon@3:1 B|-4"},
    {"a lost End before an indented header", "Weapon A\n  Weapon B\nEnd",
     "+Weapon@1:1 A|!open@2:3 Weapon|-~1|+Weapon@2:3 B|-3"},
    {"a lost End before a header without a name", "Weapon A\nGameData\nEnd",
     "+Weapon@1:1 A|!open@2:1 Weapon|-~1|+GameData@2:1|-3"},
    {"a lost End of a nested block", "Object A\n WeaponSet\n Body = ActiveBody T\n End\nEnd",
     "+Object@1:1 A|+Object/WeaponSet@2:2|!open@3:2 WeaponSet in Object|-~2|"
     "+Object/Body=ActiveBody@3:2 ActiveBody,T|-4|-5"},
    {"several lost Ends", "Object A\n Draw = D T\n  ConditionState = X\nObject B\nEnd",
     "+Object@1:1 A|+Object/Draw=*@2:2 D,T|+Object/Draw=*/ConditionState@3:3 X|"
     "!open@4:1 Object Draw ConditionState|-~3|-~3|-~3|+Object@4:1 B|-5"},
    {"a lost End at the end", "Weapon A\r\nFireFX = X\r\n",
     "+Weapon@1:1 A|FireFX@2:1 X:10|!open@2:1 Weapon|-~2"},
    {"an End too many", "Weapon A\nEnd\nEnd\nWeapon B\nEnd", "+Weapon@1:1 A|-2|!end@3:1|+Weapon@4:1 B|-5"},
    {"a block closed too early", "Object A\n End\n Body = B T\n End\nEnd\nObject B\nEnd\nEnd",
     "+Object@1:1 A|-2|!loose@3:2|(!end@4:2)|(!end@5:1)|+Object@6:1 B|-7|!end@8:1"},
    {"a nested block that stands alone is no nameless item",
     "FXList A\n End\n ParticleSystem\n  Name = X\n End\nEnd",
     "+FXList@1:1 A|-2|!loose@3:2|(!loose@4:3)|(!end@5:2)|(!end@6:1)"},
    {"loose text", "Weapon\nFIXED", "!loose@1:1|(!loose@2:1)"},
    {"= makes no header", "Weapon = A\nWeapon B\nWeapon = C\nEnd",
     "!loose@1:1|+Weapon@2:1 B|Weapon?@3:1 C:10|-4"},
};

INSTANTIATE_TEST_SUITE_P(Sound, StructureReading, testing::ValuesIn(kSound));
INSTANTIATE_TEST_SUITE_P(Faulty, StructureReading, testing::ValuesIn(kFaulty));

TEST(StructureReader, StopsWhenItsSinkSaysSo) {
  class Stopping : public Scribe {
    bool goesOn() override { return false; }
  } sink;
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "LODPreset = LOW\n";
  EXPECT_FALSE(ReadStructure(text, sink));
  EXPECT_LT(sink.text.size(), text.size() / 2);
}

TEST(StructureReader, TellsWhereInTheTextThingsStand) {
  static constexpr std::string_view kText = ";\r\n Weapon A ;B\r FireFX = X // y\nEnd;\r\n;";
  class Places : public StructureSink {
    void blockBegins(const BlockHeader& block) override {
      EXPECT_EQ(kText.substr(block.place.offset, 6), "Weapon");
      EXPECT_EQ(block.lineOffset + 1, block.place.offset);
      EXPECT_EQ(block.words, "A");
      EXPECT_EQ(block.wordsColumn, 9U);
    }
    void keyFound(const KeyLine& key) override {
      EXPECT_EQ(kText.substr(key.place.offset, 6), "FireFX");
      EXPECT_EQ(key.value, "X");
      EXPECT_EQ(key.valueColumn, 11U);
    }
    void blockEnds(const BlockHeader&, const BlockEnd& end) override {
      EXPECT_EQ(kText.substr(end.place.offset, 3), "End");
      EXPECT_EQ(kText.substr(end.behind), ";");
    }
  } sink;
  ReadStructure(kText, sink);
}

TEST(StructureReader, BlocksAreNotOpenedWithoutEnd) {
  std::string text = "Object A\n";
  for (int i = 0; i < 100'000; ++i) text += " InheritableModule\n";
  EXPECT_LT(Told(text).size(), 10 * text.size());
}

}  // namespace

}  // namespace korvane
