// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <thread>
#include <utility>

#include "catalogue/Catalogue.h"
#include "catalogue/LineTexts.h"
#include "stock/StockFiles.h"
#include "support/GameFolder.h"
#include "support/SlowCatalogue.h"

namespace korvane {

namespace {

namespace fs = std::filesystem;

SpaceId Space(std::string_view name) {
  return GameStructure::get().space(name);
}

// "path:line:column Name" of each, the path's beginning "Data\INI\" left out and "(archive)" before it.
template <typename Found>
std::string Places(const std::vector<Found>& all) {
  std::string text;
  for (const Found& each : all) {
    const SourceFile& source = each.file->source();
    if (!text.empty()) text += ", ";
    if (source.archived) text += "(" + source.container.substr(source.container.rfind('\\') + 1) + ")";
    text += source.path.substr(9) + ':' + std::to_string(each.line) + ':' + std::to_string(each.column) +
            ' ' + std::string(each.name);
  }
  return text;
}

std::string Definitions(const CataloguePtr& catalogue, std::string_view name) {
  return Places(catalogue->definitions(kNoSpace, name));
}

// The skipped files' names and the reasons.
std::string Skipped(const CataloguePtr& catalogue) {
  std::string text;
  for (const SkippedFile& file : catalogue->skipped())
    text += file.path.substr(file.path.find_last_of("\\(") + 1) + ": " + file.reason + "\n";
  return text;
}

// Long enough ago for its time to tell it from a later one.
void Age(const fs::path& file) {
  fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

void AgeAll(const GameFolder& folder) {
  for (const auto& entry : fs::recursive_directory_iterator(folder.native("")))
    if (entry.is_regular_file()) Age(entry.path());
}

}  // namespace

TEST(Catalogue, ReadsEveryIniFileOfTheFolder) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon Gun\n  FireFX = Flash\nEnd\n");
  folder.ini("Deep/Down/Here/FX.INI", "FXList Flash\nEnd\nFXList flash\nEnd\n");
  folder.ini("notes.txt", "Weapon NotThis\nEnd\n");
  folder.write("Data/Elsewhere.ini", "Weapon NotThis\nEnd\n");
  folder.write("data/ini/Other.iNi", "Weapon Other\rFireFX = FLASH\rEnd\r");
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  EXPECT_EQ(catalogue->files().size(), 3U);
  EXPECT_EQ(Definitions(catalogue, "FLASH"),
            "Deep\\Down\\Here\\FX.INI:1:8 Flash, Deep\\Down\\Here\\FX.INI:3:8 flash");
  EXPECT_EQ(Places(catalogue->uses(Space("FXList"), "flash")), "Other.iNi:2:10 FLASH, Weapon.ini:2:12 Flash");
  EXPECT_EQ(catalogue->countUses(Space("FXList"), "flash"), 2U);
  EXPECT_EQ(Places(catalogue->uses(Space("Weapon"), "flash")), "");
  EXPECT_TRUE(catalogue->defines(Space("Weapon"), "OTHER"));
  EXPECT_FALSE(catalogue->defines(kNoSpace, "NotThis"));
  ASSERT_NE(catalogue->file("data/ini/deep\\down/here/fx.ini"), nullptr);
  EXPECT_EQ(catalogue->file("Data\\INI\\None.ini"), nullptr);
}

// "line:column name" of what a whole folder's files define and name, by the space and the folded name, as the
// slow twin reads them.
struct SlowFolder {
  using Answers = std::map<std::pair<std::string, std::string>, std::string>;
  Answers definitions;
  Answers uses;

  void add(const std::string& file, const std::string& text) {
    std::vector<Fact> facts;
    for (const std::string& each : SlowFacts(text)) facts.push_back(Fact(each));
    std::ranges::sort(facts, {}, [](const Fact& fact) { return std::pair(fact.line, fact.column); });
    for (const Fact& fact : facts) {
      if (fact.what == "define") add(definitions, SpaceOfKind(fact.of), file, fact);
      if (fact.what == "use") add(uses, fact.of, file, fact);
    }
  }

  static std::string Folded(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  }

 private:
  struct Fact {
    explicit Fact(const std::string& text) {
      std::istringstream words(text);
      char colon = 0;
      words >> what >> line >> colon >> column >> of >> name;
    }
    std::string what;
    std::size_t line = 0;
    std::size_t column = 0;
    std::string of;
    std::string name;
  };

  static std::string SpaceOfKind(const std::string& kind) {
    return std::string(GameStructure::get().spaces()[GameStructure::get().space(kind)]);
  }
  static void add(Answers& answers, const std::string& space, const std::string& file, const Fact& fact) {
    std::string& all = answers[{space, Folded(fact.name)}];
    if (!all.empty()) all += ", ";
    all += file + ':' + std::to_string(fact.line) + ':' + std::to_string(fact.column) + ' ' + fact.name;
  }
};

TEST(Catalogue, OfAWholeFolderAgreesWithASlowTwin) {
  const GameFolder game;
  SlowFolder slow;
  const fs::path sample(KORVANE_SAMPLE_GAME "/Data/INI");
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(sample))
    if (entry.path().extension() == ".ini") files.push_back(entry.path());
  std::ranges::sort(files, {}, [](const fs::path& file) { return SlowFolder::Folded(file.string()); });
  for (const fs::path& file : files) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::string path = file.lexically_relative(sample).generic_string();
    game.write("Data/INI/" + path, text);
    std::ranges::replace(path, '/', '\\');
    slow.add(path, text);
  }
  const CataloguePtr catalogue = ReadCatalogue({game.path()});
  SlowFolder::Answers names = slow.uses;
  names.insert(slow.definitions.begin(), slow.definitions.end());
  ASSERT_GT(names.size(), 500U);
  for (const auto& [key, unused] : names) {
    const SpaceId space = Space(key.first);
    const auto uses = catalogue->uses(space, key.second);
    EXPECT_EQ(Places(catalogue->definitions(space, key.second)), slow.definitions[key]) << key.second;
    EXPECT_EQ(Places(uses), slow.uses[key]) << key.second;
    EXPECT_EQ(catalogue->countUses(space, key.second), uses.size()) << key.second;
  }
  for (const auto& file : catalogue->files()) {
    for (const auto& each : file->definitions())
      EXPECT_TRUE(names.contains({std::string(GameStructure::get().spaces()[file->space(each.name)]),
                                  SlowFolder::Folded(std::string(file->name(each.name)))}));
  }
}

TEST(Catalogue, SoundsOfAllKindsHaveOneSpaceOfNames) {
  const GameFolder folder;
  folder.ini("Speech.ini", "DialogEvent Hello\nEnd\nMusicTrack March\nEnd\nAudioEvent Bang\nEnd\n");
  folder.ini("Weapon.ini", "Weapon A\n FireSound = Hello\nEnd\nWeapon B\n FireSound = march\nEnd\n");
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  for (const char* name : {"Hello", "March"})
    EXPECT_EQ(catalogue->uses(Space("AudioEvent"), name).size(), 1U) << name;
  EXPECT_TRUE(catalogue->defines(Space("MusicTrack"), "bang"));
}

TEST(Catalogue, LooseFilesHideArchivedOnesAndArchivesEachOther) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon Loose\nEnd\n");
  folder.write("A.BIG", ArchiveBytes({{"data\\ini\\weapon.ini", "Weapon Hidden\r\nEnd\r\n"},
                                      {"Data/INI/Armor.ini", "Armor FromA\r\nEnd\r\n"},
                                      {"Data\\INI\\..\\Evil.ini", "Weapon Evil\r\nEnd\r\n"},
                                      {"Data\\Other.ini", "Weapon NotThis\r\nEnd\r\n"},
                                      {"Data\\INI\\Picture.tga", "Weapon NotThis\r\nEnd\r\n"}}));
  folder.write("b.big", ArchiveBytes({{"Data\\INI\\Armor.ini", "Armor FromB\r\nEnd\r\n"},
                                      {"Data\\INI\\Object\\X.ini", "Object X\r\n Armor = A\r\nEnd\r\n"}}));
  folder.write("damaged.big", "BIGF and no more");
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  EXPECT_EQ(catalogue->files().size(), 3U);
  EXPECT_EQ(Definitions(catalogue, "Loose"), "Weapon.ini:1:8 Loose");
  EXPECT_EQ(Definitions(catalogue, "FromA"), "(A.BIG)Armor.ini:1:7 FromA");
  EXPECT_EQ(Definitions(catalogue, "X"), "(b.big)Object\\X.ini:1:8 X");
  for (const char* name : {"Hidden", "FromB", "Evil", "NotThis"})
    EXPECT_EQ(Definitions(catalogue, name), "") << name;
  EXPECT_EQ(Skipped(catalogue),
            "Evil.ini): its path leads elsewhere\ndamaged.big: it cannot be read as an archive\n");
}

TEST(Catalogue, FurtherSourcesStandBehind) {
  const GameFolder folder, original;
  folder.ini("Weapon.ini", "Weapon Mine\nEnd\n");
  original.ini("Weapon.ini", "Weapon Hidden\nEnd\n");
  original.ini("Armor.ini", "Armor Original\nEnd\n");
  original.write("More.big", ArchiveBytes({{"Data\\INI\\Science.ini", "Science InArchive\r\nEnd\r\n"}}));
  original.write("Apart", ArchiveBytes({{"Data\\INI\\Upgrade.ini", "Upgrade Apart\r\nEnd\r\n"}}));
  fs::rename(original.native("Apart"), folder.native("Data/Apart.big"));
  const CataloguePtr catalogue = ReadCatalogue(
      {folder.path(), {original.path(), folder.path() + "\\Data\\Apart.big", folder.path() + "\\nothing"}});
  EXPECT_EQ(Definitions(catalogue, "Hidden"), "");
  for (const char* name : {"Mine", "Original", "InArchive", "Apart"}) {
    const auto found = catalogue->definitions(kNoSpace, name);
    ASSERT_EQ(found.size(), 1U) << name;
    EXPECT_EQ(found[0].file->source().own, name == std::string("Mine")) << name;
  }
  EXPECT_EQ(Skipped(catalogue), "nothing: it is no folder and no archive\n");
}

TEST(Catalogue, SkipsAndListsWhatIsNoText) {
  const GameFolder folder;
  folder.ini("Good.ini", "Weapon Gun\nEnd\n");
  folder.write("Data/INI/Zero.ini", std::string_view("Weapon A\0\r\nEnd", 14));
  folder.write("Data/INI/Long.ini", "Weapon A\r\nEnd\r\n" + std::string((1 << 20) + 10, 'x'));
  folder.write("Data/INI/NotLong.ini", "Weapon B\r\nEnd\r\n;" + std::string(1 << 20, 'x').substr(2) + "\r\n");
  std::string links;
#ifndef _WIN32  // the standard library makes none there
  fs::create_directory_symlink(folder.native("Data/INI"), folder.native("Data/INI/Loop"));
  fs::create_symlink("nowhere", folder.native("Data/INI/Gone.ini"));
  fs::create_symlink("Round.ini", folder.native("Data/INI/Round.ini"));
  links =
      "Gone.ini: it is no ordinary file\n"
      "Loop: it leads to a folder that is read already\n"
      "Round.ini: it is no ordinary file\n";
#endif
  fs::create_directory(folder.native("Data/INI/Folder.ini"));
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  EXPECT_EQ(catalogue->files().size(), 2U);
  EXPECT_EQ(Skipped(catalogue), links +
                                    "Long.ini: it has a line of more than 1 MB\n"
                                    "Zero.ini: it is no text\n");
}

#ifndef _WIN32  // both would be one file

TEST(Catalogue, ASecondFileInOtherLetterCaseIsListed) {
  const GameFolder folder;
  folder.ini("WEAPON.INI", "Weapon First\nEnd\n");
  folder.ini("Weapon.ini", "Weapon Second\nEnd\n");
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  EXPECT_EQ(Definitions(catalogue, "First"), "WEAPON.INI:1:8 First");
  EXPECT_EQ(Definitions(catalogue, "Second"), "");
  EXPECT_EQ(Skipped(catalogue), "Weapon.ini: another file has this path in other letter case\n");
}

#endif

TEST(Catalogue, UnreadableFilesAndMissingFoldersAreNoEnd) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon A\nEnd\n");
  fs::permissions(folder.native("Data/INI/Weapon.ini"), fs::perms::none);
  const bool readable = std::ifstream(folder.native("Data/INI/Weapon.ini")).is_open();  // as root it is
  EXPECT_EQ(Skipped(ReadCatalogue({folder.path()})), readable ? "" : "Weapon.ini: it cannot be read\n");
  EXPECT_TRUE(ReadCatalogue({folder.path() + "\\none"})->files().empty());
  EXPECT_TRUE(ReadCatalogue({})->files().empty());
}

TEST(Catalogue, ReadsAgainOnlyWhatHasChanged) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon A\nEnd\n");
  folder.ini("Armor.ini", "Armor A\nEnd\n");
  AgeAll(folder);
  const CataloguePtr before = ReadCatalogue({folder.path()});
  folder.ini("Weapon.ini", "Weapon B\nEnd\n");  // of the same size
  const CataloguePtr after = ReadCatalogue({folder.path()}, before.get());
  EXPECT_EQ(after->file("Data\\INI\\Armor.ini"), before->file("Data\\INI\\Armor.ini"));
  EXPECT_EQ(Definitions(after, "B"), "Weapon.ini:1:8 B");
  EXPECT_EQ(Definitions(before, "B"), "");
  const fs::path weapons = folder.native("Data/INI/Weapon.ini");
  const fs::file_time_type time = fs::last_write_time(weapons);
  folder.ini("Weapon.ini", "Weapon C\nEnd\n");
  fs::last_write_time(weapons, time);  // as if within the tick of the clock
  EXPECT_EQ(Definitions(ReadCatalogue({folder.path()}, after.get()), "C"), "Weapon.ini:1:8 C");
  fs::remove(folder.native("Data/INI/Weapon.ini"));
  EXPECT_EQ(ReadCatalogue({folder.path()}, after.get())->files().size(), 1U);
}

TEST(Catalogue, TakesOneFileAnew) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon A\nEnd\n");
  folder.ini("Armor.ini", "Armor A\nEnd\n");
  folder.write("INI.big", ArchiveBytes({{"Data\\INI\\Weapon.ini", "Weapon Old\r\nEnd\r\n"},
                                        {"Data\\INI\\New.ini", "Weapon New\r\nEnd\r\n"}}));
  AgeAll(folder);
  CataloguePtr catalogue = ReadCatalogue({folder.path()});
  const CatalogueFile* armor = catalogue->file("Data\\INI\\Armor.ini");
  folder.ini("Armor.ini", "Armor Unasked\nEnd\n");
  folder.ini("Weapon.ini", "\nWeapon B\nEnd\n");
  catalogue = WithFileRead(*catalogue, "data/ini/weapon.INI");
  EXPECT_EQ(Definitions(catalogue, "B"), "Weapon.ini:2:8 B");
  EXPECT_EQ(catalogue->file("Data\\INI\\Armor.ini"), armor);
  folder.ini("New.ini", "Weapon Newer\nEnd\n");
  catalogue = WithFileRead(*catalogue, "Data\\INI\\New.ini");
  EXPECT_EQ(Definitions(catalogue, "New"), "");
  EXPECT_EQ(Definitions(catalogue, "Newer"), "New.ini:1:8 Newer");
  fs::remove(folder.native("Data/INI/Weapon.ini"));
  catalogue = WithFileRead(*catalogue, "Data\\INI\\Weapon.ini");
  EXPECT_EQ(Definitions(catalogue, "Old"), "(INI.big)Weapon.ini:1:8 Old");
}

TEST(Catalogue, TakesATextThatIsNotSaved) {
  const GameFolder folder;
  folder.ini("Weapon.ini", "Weapon A\nEnd\n");
  AgeAll(folder);
  const CataloguePtr before = ReadCatalogue({folder.path()});
  const CataloguePtr edited = WithText(*before, "Data\\INI\\weapon.ini", "Weapon Edited\n FireFX = F\nEnd");
  EXPECT_EQ(Definitions(edited, "Edited"), "Weapon.ini:1:8 Edited");
  EXPECT_EQ(edited->countUses(Space("FXList"), "f"), 1U);
  EXPECT_EQ(Definitions(WithText(*edited, "Data\\INI\\Z.ini", "Weapon Z\nEnd"), "Z"), "Z.ini:1:8 Z");
  EXPECT_EQ(Definitions(ReadCatalogue({folder.path()}, edited.get()), "A"), "Weapon.ini:1:8 A");
}

TEST(Catalogue, StopsWhenAskedAndTellsHowFarItIs) {
  const GameFolder folder;
  for (int i = 0; i < 10; ++i) folder.ini(std::to_string(i) + ".ini", "Weapon A\nEnd\n");
  std::stop_source stop;
  std::size_t told = 0;
  const auto progress = [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(all, 10U);
    told = done;
    if (done == 4) stop.request_stop();
  };
  EXPECT_EQ(ReadCatalogue({folder.path()}, nullptr, stop.get_token(), progress), nullptr);
  EXPECT_EQ(told, 4U);
}

TEST(Catalogue, ThreadsMayShareIt) {
  const GameFolder folder;
  for (int i = 0; i < 20; ++i)
    folder.ini(std::to_string(i) + ".ini", "Weapon W" + std::to_string(i) + "\n FireFX = F\nEnd\n");
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 4; ++thread)
    threads.emplace_back([catalogue] {
      for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(catalogue->uses(Space("FXList"), "f").size(), 20U);
        EXPECT_EQ(WithText(*catalogue, "Data\\INI\\0.ini", "")->countUses(Space("FXList"), "F"), 19U);
      }
    });
}

TEST(LineTexts, GivesTheLinesOfLooseAndArchivedFiles) {
  const GameFolder folder;
  folder.write("Data/INI/Weapon.ini", "Weapon A\r\n  FireFX = X ; y\rEnd\n\n;last");
  folder.write("INI.big", ArchiveBytes({{"Data\\INI\\Armor.ini", "Armor A\r\nEnd\r\n"}}));
  const CataloguePtr catalogue = ReadCatalogue({folder.path()});
  const CatalogueFile& weapons = *catalogue->file("Data\\INI\\Weapon.ini");
  const CatalogueFile& armours = *catalogue->file("Data\\INI\\Armor.ini");
  LineTexts lines;
  EXPECT_EQ(lines.line(weapons.source(), 2), "  FireFX = X ; y");
  EXPECT_EQ(lines.line(weapons.source(), 3), "End");
  EXPECT_EQ(lines.line(armours.source(), 1), "Armor A");
  EXPECT_EQ(lines.line(weapons.source(), 5), ";last");
  EXPECT_EQ(lines.line(weapons.source(), 1), "Weapon A");
  EXPECT_EQ(lines.line(weapons.source(), 6), "");
  EXPECT_EQ(lines.line(weapons.source(), 0), "");
  fs::remove(folder.native("Data/INI/Weapon.ini"));
  EXPECT_EQ(LineTexts().line(weapons.source(), 1), "");
}

}  // namespace korvane
