// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "catalogue/NameSearch.h"

namespace korvane {

namespace {

struct Case {
  const char* pattern;
  const char* name;
  std::optional<MatchRank> rank;
  const char* marked;  // the parts in brackets
};

std::string Marked(const NameMatcher& matcher, std::string_view name) {
  std::string marked;
  std::size_t at = 0;
  for (const NamePart& part : matcher.parts(name)) {
    marked += std::string(name.substr(at, part.begin - at)) + '[' +
              std::string(name.substr(part.begin, part.size)) + ']';
    at = part.begin + part.size;
  }
  return marked + std::string(name.substr(at));
}

constexpr Case kCases[] = {
    {"", "Anything", MatchRank::prefix, "Anything"},
    {"tank", "Tank", MatchRank::exact, "[Tank]"},
    {"TA nk", "TankGun", MatchRank::prefix, "[Tank]Gun"},
    {"crusad", "AmericaTankCrusader", MatchRank::wordStart, "AmericaTank[Crusad]er"},
    {"rusad", "AmericaTankCrusader", MatchRank::substring, "AmericaTankC[rusad]er"},
    {"amtacru", "AmericaTankCrusader", MatchRank::initials, "[Am]erica[Ta]nk[Cru]sader"},
    {"atc", "AmericaTankCrusader", MatchRank::initials, "[A]merica[T]ank[C]rusader"},
    {"ac", "AmericaTankCrusader", MatchRank::initials, "[A]mericaTank[C]rusader"},
    {"amcrus", "AmericaTankCrusader", MatchRank::initials, "[Am]ericaTank[Crus]ader"},
    {"tam", "AmericaTankCrusader", std::nullopt, "AmericaTankCrusader"},
    {"merta", "AmericaTankCrusader", std::nullopt, "AmericaTankCrusader"},
    {"an", "Banana_Anvil", MatchRank::wordStart, "Banana_[An]vil"},
    {"gt", "GLATank", MatchRank::initials, "[G]LA[T]ank"},
    {"ufx2", "Upgrade_FX_02", std::nullopt, "Upgrade_FX_02"},
    {"ufx02", "Upgrade_FX_02", MatchRank::initials, "[U]pgrade_[FX]_[02]"},
    {"tt", "TankT", MatchRank::initials, "[T]ank[T]"},
    {"tankcrusaderx", "TankCrusader", std::nullopt, "TankCrusader"},
};

TEST(NameMatcher, RanksAndMarksAsPeopleExpect) {
  for (const Case& each : kCases) {
    const NameMatcher matcher(each.pattern);
    EXPECT_EQ(matcher.rank(each.name), each.rank) << each.pattern << " in " << each.name;
    EXPECT_EQ(Marked(matcher, each.name), each.marked) << each.pattern;
  }
}

// Where each letter of the pattern may stand, by trying everything.
bool SlowInitials(const std::string& pattern, std::size_t letter, const std::string& name, std::size_t from,
                  bool goesOn) {
  if (letter == pattern.size()) return true;
  for (std::size_t at = from; at < name.size(); ++at) {
    const bool capital = std::isupper(static_cast<unsigned char>(name[at])) != 0;
    const bool may = capital || (goesOn && at == from);
    if (may && std::tolower(name[at]) == pattern[letter] &&
        SlowInitials(pattern, letter + 1, name, at + 1, true))
      return true;
  }
  return false;
}

TEST(NameMatcher, FindsInitialsAsTryingEverythingDoes) {
  const std::string name = "AabAbaBaaAb";  // every capital begins a word
  for (int number = 0; number < 1 << 12; ++number) {
    std::string pattern;
    for (int bits = number | 1 << 12; bits > 1; bits /= 2) pattern += bits % 2 == 0 ? 'a' : 'b';
    for (std::size_t size = 1; size <= pattern.size(); ++size) {
      const NameMatcher matcher(pattern.substr(0, size));
      const bool found = SlowInitials(pattern.substr(0, size), 0, name, 0, false);
      const auto rank = matcher.rank(name);
      EXPECT_TRUE(found ? rank.has_value() : rank != MatchRank::initials) << pattern.substr(0, size);
    }
  }
}

Catalogue CatalogueOf(std::string_view text) {
  return Catalogue({}, {CatalogueFile::read({.path = "Data\\INI\\A.ini"}, text)}, {});
}

std::string Found(const Catalogue& catalogue, const NameSearch& search) {
  std::string found;
  for (const NameHit& hit : SearchNames(catalogue, search).hits)
    found += (found.empty() ? "" : " ") + std::string(hit.definition.name);
  return found;
}

constexpr std::string_view kNames =
    "Upgrade tank\nEnd\nFXList TankFX\nEnd\nWeapon TankGun\nEnd\nObject TankHunter\nEnd\nObject "
    "GLATank\nEnd\n"
    "CommandSet SmallTank\nEnd\nObject OldTank\nEnd\nObject Bantanker\nEnd\nScience AnvilT\nEnd\nObject "
    "TopAnkle\nEnd\n"
    "Object TAnk_\nEnd\n";

TEST(NameSearch, OrdersAsPeopleExpect) {
  const Catalogue catalogue = CatalogueOf(kNames);
  EXPECT_EQ(Found(catalogue, {"tank"}),
            "tank TAnk_ TankHunter GLATank OldTank Bantanker TopAnkle TankGun SmallTank TankFX");
  const NameHits some = SearchNames(catalogue, {.pattern = "tank", .kinds = {}, .most = 2});
  EXPECT_EQ(some.hits.size(), 2U);
  EXPECT_EQ(some.all, 10U);
}

TEST(NameSearch, PutsThingsBeforeWhatIsNamedAfterThem) {
  const Catalogue catalogue = CatalogueOf(
      "Object DeadCrusaderHulk\nEnd\nWeapon CrusaderGun\nEnd\nObject AmericaTankCrusader\nEnd\n"
      "Object CINE_AmericaTankCrusader\nEnd\n");
  EXPECT_EQ(Found(catalogue, {"crusad"}),
            "AmericaTankCrusader CINE_AmericaTankCrusader DeadCrusaderHulk CrusaderGun");
}

TEST(NameSearch, KeepsToTheKinds) {
  const Catalogue catalogue = CatalogueOf(kNames);
  const GameStructure& structure = GameStructure::get();
  EXPECT_EQ(Found(catalogue, {"tank", {structure.kind("Weapon"), structure.kind("FXList")}}),
            "TankGun TankFX");
  EXPECT_EQ(Found(catalogue, {"", {structure.kind("Science")}}), "AnvilT");
}

}  // namespace

}  // namespace korvane
