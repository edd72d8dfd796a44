// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "support/AgainstSlowEdits.h"

namespace korvane {
namespace {

// Makes files of blocks as people write them, and worse, and edits of what is shown of them.
class Maker {
 public:
  explicit Maker(unsigned seed) : chance_(seed) {}

  std::string file(std::string_view kind) {
    std::string text;
    for (int blocks = 1 + below(3); blocks > 0; --blocks) block(kind, text);
    return text;
  }

  std::vector<FieldEdit> edits(std::string_view kind) {
    std::vector<FieldEdit> made;
    for (int count = 1 + below(3); count > 0; --count) made.push_back({field(kind), pick(kValues)});
    return made;
  }

 private:
  static constexpr std::array<const char*, 12> kKeys = {
      "BuildCost", "BuildTime", "VisionRange", "ShroudClearingRange", "MaxHealth",  "InitialHealth",
      "Armor",     "Speed",     "TurnRate",    "PrimaryDamage",       "DamageType", "Locomotor"};
  static constexpr std::array<const char*, 9> kValues = {"5",   "50%", "22.5", "Gun",  "LASER",
                                                         "yes", "1 2", "a;b",  "\xE4x"};
  static constexpr std::array<const char*, 6> kSigns = {" = ", " = ", " = ", "=", " =\t", "  =  "};
  static constexpr std::array<const char*, 6> kTails = {"", "", " ; was 4", "\t; x", " // 7", ";50%"};
  static constexpr std::array<const char*, 5> kEnds = {"\r\n", "\r\n", "\r\n", "\r\n", "\r"};
  static constexpr std::array<const char*, 4> kSlots = {"PRIMARY ", "SECONDARY ", "TERTIARY ", ""};
  static constexpr std::array<const char*, 3> kConditions = {"None", "ELITE", ""};

  int below(int limit) { return static_cast<int>(chance_() % static_cast<unsigned>(limit)); }
  bool rarely() { return below(12) == 0; }
  template <std::size_t size>
  const char* pick(const std::array<const char*, size>& from) {
    return from[static_cast<std::size_t>(below(size))];
  }
  void line(std::string& text, const std::string& what) { text += what + pick(kEnds); }
  std::string valueLine(const std::string& indent, const std::string& key, const std::string& label) {
    return indent + key + (rarely() ? "X" : "") + pick(kSigns) + label + pick(kValues) + pick(kTails);
  }

  void block(std::string_view kind, std::string& text) {
    line(text, std::string(kind) + " Tank" + (rarely() ? "Wreck" : "") + (rarely() ? " ; first" : ""));
    for (int lines = below(9); lines > 0; --lines) anyLine(kind, text);
    if (!rarely()) line(text, "End");
  }

  void anyLine(std::string_view kind, std::string& text) {
    if (rarely()) return line(text, pick(kTails));
    if (kind == "Armor") return line(text, valueLine("  ", "Armor", below(2) == 0 ? "FLAME " : "LASER "));
    if (kind == "CommandSet") return line(text, valueLine(" ", std::to_string(1 + below(13)), ""));
    if (kind == "Object" && below(3) == 0) return set(text);
    const std::string key = pick(kKeys);
    line(text, valueLine(rarely() ? "\t" : "  ", key, key == "Locomotor" ? "SET_NORMAL " : ""));
  }

  void set(std::string& text) {
    static constexpr std::array<const char*, 3> kSets = {"WeaponSet", "ArmorSet",
                                                         "Body = ActiveBody ModuleTag_01"};
    const std::string kind = pick(kSets);
    line(text, "  " + kind);
    for (int lines = below(4); lines > 0; --lines) {
      if (kind == "WeaponSet") {
        line(text, rarely() ? "    Conditions = " + std::string(pick(kConditions))
                            : valueLine("    ", "Weapon", pick(kSlots)));
      } else {
        line(text, valueLine("    ", kind == "ArmorSet" ? "Armor" : "MaxHealth", ""));
      }
    }
    line(text, rarely() ? "    End" : "  End");
  }

  Field field(std::string_view kind) {
    if (kind == "Locomotor") return *HandlingField(static_cast<std::size_t>(below(9)));
    if (kind == "Weapon") return *TableField(kind, below(2) == 0 ? "Weapon Damage" : "Damage Type");
    if (kind == "Armor")
      return ArmourField{below(2) == 0 ? "FLAME" : "LASER", static_cast<std::size_t>(below(2))};
    if (kind == "CommandSet") return SlotField{1 + below(12)};
    const auto number = static_cast<std::size_t>(below(3));
    if (below(3) == 0) return WeaponField{number % 2, pick(kConditions), number};
    if (below(4) == 0) return LocomotorField{number % 2, 1 + number % 2};
    return *ObjectField(kKeys[static_cast<std::size_t>(below(7))]);
  }

  std::mt19937 chance_;
};

TEST(GeneratedEdits, AreShownAsTypedAndChangeNothingElse) {
  constexpr std::array<std::string_view, 5> kKinds = {"Object", "Locomotor", "Weapon", "Armor", "CommandSet"};
  Maker make(7);
  int carriedOut = 0;
  for (int round = 0; round < 30000; ++round) {
    const std::string_view kind = kKinds[static_cast<std::size_t>(round) % kKinds.size()];
    const std::string file = make.file(kind);
    const std::vector<FieldEdit> edits = make.edits(kind);
    const BlockName name{kind, "Tank"};
    ASSERT_EQ(DifferenceFromSlowEdits(file, name, edits), "") << testing::PrintToString(file);
    if (!PlanFieldEdits(file, name, edits).refused()) ++carriedOut;
  }
  EXPECT_GT(carriedOut, 3000);  // else nearly all were refused, and nothing is tested
}

}  // namespace
}  // namespace korvane
