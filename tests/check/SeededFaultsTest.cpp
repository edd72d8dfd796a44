// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "check/CheckDesk.h"

namespace korvane {
namespace {

// A made-up folder whose files have no fault.
struct Page {
  std::string path;
  std::vector<std::string> lines;
};

void Append(Page& page, std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    page.lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
}

std::vector<Page> FaultlessPages() {
  std::vector<Page> pages = {{"Data/INI/Weapon.ini", {}},          {"Data/INI/FXList.ini", {}},
                             {"Data/INI/Object/Vehicles.ini", {}}, {"Data/INI/ObjectCreationList.ini", {}},
                             {"Data/INI/Armor.ini", {}},           {"Data/INI/ParticleSystem.ini", {}}};
  for (int i = 0; i < 12; ++i) {
    const std::string n(1, static_cast<char>('A' + i));
    Append(pages[0], "Weapon CannonOf" + n +
                         "\n  PrimaryDamage = 60.0\n  PrimaryDamageRadius = 5.0\n"
                         "  AttackRange = 150.0\n  DamageType = ARMOR_PIERCING\n  DeathType = EXPLODED\n"
                         "  ProjectileObject = Vehicle" +
                         n + "\n  FireFX = FX_Muzzle" + n +
                         "\n"
                         "  RadiusDamageAffects = ALLIES ENEMIES NEUTRALS\n  ClipReloadTime = 2000\nEnd\n\n");
    Append(pages[1],
           "FXList FX_Muzzle" + n + "\n  ParticleSystem\n    Name = SmokeOf" + n +
               "\n"
               "    Offset = X:0.0 Y:10.0 Z:2.5\n  End\n  ViewShake\n    Type = SUBTLE\n  End\nEnd\n\n");
    Append(pages[2],
           "Object Vehicle" + n +
               "\n  Draw = W3DTankDraw ModuleTag_01\n    DefaultConditionState\n"
               "      Model = NONE\n    End\n    ConditionState = DAMAGED\n      Model = NONE\n"
               "      AnimationMode = LOOP\n    End\n  End\n  Side = America\n  TransportSlotCount = 3\n"
               "  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY CannonOf" +
               n +
               "\n  End\n"
               "  ArmorSet\n    Armor = PlatesOf" +
               n +
               "\n  End\n  BuildCost = 900\n  BuildTime = 10.0\n"
               "  KindOf = VEHICLE SELECTABLE CAN_ATTACK\n  VisionRange = 150.0\n"
               "  Behavior = SlowDeathBehavior ModuleTag_02\n    DestructionDelay = 200\n"
               "    OCL = FINAL DebrisOf" +
               n +
               "\n  End\n  Behavior = PhysicsBehavior ModuleTag_03\n"
               "    Mass = 50.0\n  End\n  Geometry = BOX\n  GeometryMajorRadius = 15.0\nEnd\n\n");
    Append(pages[3], "ObjectCreationList DebrisOf" + n + "\n  CreateObject\n    ObjectNames = Vehicle" + n +
                         "\n"
                         "    Disposition = LIKE_EXISTING\n    Count = 2\n  End\nEnd\n\n");
    Append(pages[4], "Armor PlatesOf" + n + "\n  Armor = DEFAULT 100%\n  Armor = SMALL_ARMS 25%\nEnd\n\n");
    Append(pages[5],
           "ParticleSystem SmokeOf" + n +
               "\n  Priority = WEAPON_EXPLOSION\n  IsOneShot = No\n"
               "  Shader = ALPHA\n  Type = PARTICLE\n  SystemLifetime = 10\n  Size = 2.0 4.0\nEnd\n\n");
  }
  return pages;
}

std::string TextOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// Makes faults as fingers and minds make them, always the same ones.
class Seeder {
 public:
  explicit Seeder(const std::vector<Page>& pages) : pages_(pages) {}

  struct Seeded {
    std::string kind;
    std::string path;
    std::vector<std::string> lines;
    std::size_t first = 0;  // the lines in which a finding is right, counted from 1
    std::size_t last = 0;
  };

  // Misspells the word that `choose` chooses in a line; it is given the line's words.
  template <typename Choose>
  Seeded misspell(const std::string& kind, Choose choose) {
    for (;;) {
      Seeded seeded = copy(kind);
      std::string& line = seeded.lines[lineOf(seeded)];
      const std::string word = choose(line);
      if (word.empty()) continue;
      line.replace(line.rfind(word), word.size(), misspelt(word));
      return seeded;
    }
  }

  Seeded breakNumber() {
    for (;;) {
      Seeded seeded = copy("number");
      std::string& line = seeded.lines[lineOf(seeded)];
      const std::size_t sign = line.find("= ");
      const std::size_t digit = sign == std::string::npos ? sign : line.find_first_of("0123456789", sign);
      if (digit == std::string::npos || line.find("ModuleTag") != std::string::npos ||
          line.find("Armor") != std::string::npos)
        continue;
      static constexpr std::string_view kBreaks[] = {",5", "..0", "v", ":", "O1"};
      line.insert(digit + 1, kBreaks[random(std::size(kBreaks))]);
      return seeded;
    }
  }

  // What shows the fault is at the latest the next line that is not an End, or the header of the block.
  Seeded loseEnd() {
    for (;;) {
      Seeded seeded = copy("lost End");
      const std::size_t at = lineOf(seeded);
      if (!isEnd(seeded.lines[at]) || at + 2 >= seeded.lines.size()) continue;
      seeded.first = headerOf(seeded.lines, at) + 1;
      seeded.lines.erase(seeded.lines.begin() + static_cast<std::ptrdiff_t>(at));
      seeded.last = nextStatement(seeded.lines, at) + 1;
      return seeded;
    }
  }

  Seeded addEnd() {
    for (;;) {
      Seeded seeded = copy("added End");
      const std::size_t at = lineOf(seeded);
      if (seeded.lines[at].empty()) continue;
      const std::size_t indent = seeded.lines[at].find_first_not_of(' ');
      seeded.lines.insert(seeded.lines.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                          std::string(indent, ' ') + "End");
      seeded.first = at + 2;
      seeded.last = nextStatement(seeded.lines, at + 2) + 1;
      return seeded;
    }
  }

 private:
  std::size_t random(std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random_);
  }

  Seeded copy(const std::string& kind) {
    const Page& page = pages_[random(pages_.size())];
    const std::size_t line = random(page.lines.size());
    return {kind, page.path, page.lines, line + 1, line + 1};
  }
  static std::size_t lineOf(const Seeded& seeded) { return seeded.first - 1; }

  static bool isEnd(const std::string& line) { return line.ends_with("End"); }
  static std::size_t nextStatement(const std::vector<std::string>& lines, std::size_t at) {
    while (at + 1 < lines.size() && (lines[at].empty() || isEnd(lines[at]))) ++at;
    return at;
  }
  static std::size_t headerOf(const std::vector<std::string>& lines, std::size_t end) {
    const std::size_t indent = lines[end].find('E');
    while (lines[--end].empty() || lines[end].find_first_not_of(' ') > indent) continue;
    return end;
  }

  std::string misspelt(std::string word) {
    const std::string before = word;
    while (word == before) {
      const std::size_t at = 3 + random(word.size() - 4);  // the first letters are seldom wrong
      switch (random(4)) {
        case 0:
          word.erase(at, 1);
          break;
        case 1:
          word.insert(at, 1, 'q');
          break;
        case 2:
          std::swap(word[at], word[at + 1]);
          break;
        default:
          word[at] = word[at] == 'j' ? 'k' : 'j';
      }
    }
    return word;
  }

  const std::vector<Page>& pages_;
  std::mt19937 random_{20};
};

std::string LastWord(const std::string& line) {
  return line.substr(line.find_last_of(' ') + 1);
}

std::string NameIn(const std::string& line) {
  const bool names = line.find("Of") != std::string::npos || line.find("Vehicle") != std::string::npos ||
                     line.find("FX_") != std::string::npos;
  const bool isNumber = line.find("Offset") != std::string::npos;
  return names && !isNumber && line.starts_with("  ") && line.find("= ") != std::string::npos ? LastWord(line)
                                                                                              : "";
}

std::string KeyIn(const std::string& line) {
  const std::size_t sign = line.find(" = ");
  const std::size_t begin = line.find_first_not_of(' ');
  const bool isBlock =
      line.find("ModuleTag") != std::string::npos || line.find("ConditionState") != std::string::npos;
  if (sign == std::string::npos || sign < begin + 5 || isBlock) return "";
  return line.substr(begin, sign - begin);
}

std::string WordIn(const std::string& line) {
  const std::string word = LastWord(line);
  const bool isWord = word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_") == std::string::npos;
  return isWord && word.size() >= 5 && line.find(" = ") != std::string::npos ? word : "";
}

bool IsFound(const Checker& checker, const Seeder::Seeded& seeded) {
  const auto findings = checker.checkText(seeded.path, TextOf(seeded.lines));
  const auto isIn = [&](int line) {
    return static_cast<std::size_t>(line) >= seeded.first && static_cast<std::size_t>(line) <= seeded.last;
  };
  for (const Finding& finding : *findings)
    if (finding.level > Level::note && (isIn(finding.line) || isIn(finding.other.line))) return true;
  return false;
}

TEST(SeededFaults, AreFoundOnTheirLines) {
  const std::vector<Page> pages = FaultlessPages();
  const GameFolder folder;
  for (const Page& page : pages) folder.write(page.path, TextOf(page.lines));
  const Checker checker(ReadCatalogue({folder.path()}));
  ASSERT_EQ(Brief(*checker.check()), std::vector<std::string>()) << "the pages themselves have no fault";

  Seeder seeder(pages);
  std::vector<Seeder::Seeded> faults;
  for (int i = 0; i < 130; ++i) {
    faults.push_back(seeder.misspell("name", NameIn));
    faults.push_back(seeder.misspell("key", KeyIn));
    faults.push_back(seeder.misspell("word", WordIn));
  }
  for (int i = 0; i < 70; ++i) {
    faults.push_back(seeder.breakNumber());
    faults.push_back(seeder.loseEnd());
    faults.push_back(seeder.addEnd());
  }
  std::map<std::string, int> missed;
  std::string which;
  for (const Seeder::Seeded& seeded : faults) {
    if (IsFound(checker, seeded)) continue;
    ++missed[seeded.kind];
    which += seeded.kind + " in " + seeded.path + ":" + std::to_string(seeded.first) + ": " +
             seeded.lines[seeded.first - 1] + "\n";
  }
  int all = 0;
  for (const auto& [kind, count] : missed) all += count;
  EXPECT_EQ(faults.size(), 600U);
  EXPECT_LE(all, 30) << which;
  RecordProperty("missed", all);
}

}  // namespace
}  // namespace korvane
