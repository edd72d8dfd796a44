// SPDX-License-Identifier: GPL-3.0-or-later
// fuzz_seeds FOLDER: writes first inputs for each fuzz program to a folder of its own.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "stock/StockFiles.h"
#include "stock/StockTable.h"

namespace {

using namespace korvane;
namespace fs = std::filesystem;
using namespace std::string_view_literals;

const StockRecords kRecords = {
    {"Data\\a.ini", "Object Tank\r\nEnd\r\n"}, {"Data\\b.ini", std::string(600, 'x')}, {"c", "3"}};

constexpr std::string_view kParserSeeds[] = {
    "Object\nTank\nSpeed\nObject TankHunter\r\n  Speed = 30 ; fast\r\n  SpeedDamaged = 20\r\nEnd\r\nObject "
    "Tank\r\nEND\r\n",
    "Weapon\nGun\nPrimaryDamage\n;Weapon\rweapon gun\r\n  PrimaryDamage=5\r  ;PrimaryDamage = 6\r\n\n "
    "end\r\nEnd ; note",
    "Object\nTank\nWeapon\nObject Tank\r\n  WeaponSet\r\n    Weapon = PRIMARY Gun\r\n    End\r\n  End\r\n  "
    "Draw\r\n  End\r\n"
    "  WeaponSet\r\n    Weapon = NONE\r\n",
    "CommandSet\nTank\n1\nCommandSet Tank\r\n  1 = Stop\r\n  10 = Go\r\n  ; 1 = Old\r\n   \r\nEnd\r\n",
};

// The first byte chooses the object file.
constexpr std::string_view kTreeSeeds[] = {
    "0Object AmericaTank\r\n  Object Inner\r\nEnd\r\nObject GLABike ; fast\rObject CINEStar\r\nObject\tTab "
    "x\r\n",
    "3Object 7Eleven\r\nObject Church\r\nObject  Gap\r\nObject\r\nobject small\r\nObjectReskin A B\r\n",
    "2Object Flag",
};

// The first line is what is looked for.
constexpr std::string_view kCatalogueSeeds[] = {
    "tg\nWeapon TankGun\r\n FireFX = FX_A ; x\r\n FireSound NoSound //y\r\nEnd\r\nWeapon B\rWeapon "
    "C\nEnd\nEnd\n",
    "a\nObject A\n Draw = W3DModelDraw T\n  ConditionState = X\n   ParticleSysBone = \"a b\" P\n  End\n "
    "End\n "
    "Behavior = SlowDeathBehavior T\n  FX = INITIAL FX_A\n  OCL = FINAL O\n End\nEnd\nObjectReskin B A\n "
    "CommandSet = C\nEnd\n",
    "x\nObjectCreationList O\n DeliverPayload\n  FireWeapon = Yes\n  Payload = T 2\n End\n FireWeapon\n  "
    "Weapon = W\n "
    "End\nEnd\nloose\nEnd\n",
    "1\nCommandSet C\n 1 = B\n 19 = B\nEnd\nObject A\n Behavior = TransitionDamageFX T\n  RubbleFXList9 = "
    "fxlist: F\n "
    "WeaponSet\n  Weapon PRIMARY W\n Body = B T\nEnd",
};

constexpr std::string_view kCheckSeeds[] = {
    "Weapon Gun ; korvane: ignore duplicate\r\n  FireFX = FX_Bnag\r\n  PrimryDamage = 1,5\r\n  ClipSize = 2 "
    "; "
    "korvane: ignore key-twice\r\n  ClipSize = 3\r\nEnd\r\nEnd\r\nFIXED\r\n",
    "Object Tank\n  Side = Amercia\n  Draw = W3DModelDraw M_1\n    ConditionState = DAMAGD\n    End\n  End\n "
    "   Model "
    "= X\n  Behavior = SlowDeathBehavior M_1\n    OCL = FINAL X\nEnd\nObject TankX\nObject Tank\n",
    "CommandButton B\r  Command = UNIT_BUILD\rEnd\rCommandSet S\r  1 = B\r  1 = Button\r  \"a b\r",
    "# file\tcode\ttext\nData/INI/Weapon.ini\tstray-end\tEnd closes nothing here: no block is open\n",
};

constexpr std::string_view kBaselineSeeds[] = {
    "# Accepted findings\nData/INI/Weapon.ini\tduplicate\tWeapon Gun stands in line 3 too\n"
    "Patch.big:Data/INI/Weapon.ini\tduplicate\tWeapon Gun stands in line 12\r\nline 5\tline \t\n",
    "a\tb\nline 1line 22\t\t\n#\t\t\n",
};

constexpr std::string_view kIgnoreSeeds[] = {
    "Weapon Gun ; korvane: ignore duplicate, key-twice\r\n  ClipSize = 1 // Korvane: ignore\r\n  ClipSize = "
    "2 "
    "// korvane: IGNORE Key-Twice ; no\r\nEnd\r\n",
    "; korvane:ignore a korvane: ignore b\rkorvane: ignore duplicate\nObject A // korvane: ignore,x\n Body = "
    "B T ; korvane: ignore duplicate\n End\nEnd\n",
};

// The first line is stored.
constexpr std::string_view kSettingsSeeds[] = {
    "DejaVu Sans\n[General]\nloose=1\n\n[Settings]\nMenuiFont=Arial\nExit=\"a;b, c\"\nInfoTab=\\x41\\n, d\n",
    "@x;\n\xEF\xBB\xBF; a remark \\\n[%General]\na%20b=@ByteArray(x)\nA\\B=1 "
    "\\\n2\n[Settings]\nExit=\\\"\r\n",
    "\xC3\xA9\n[Settings]\nItemNum=2\nExit=",
};

// A draft, one of an earlier release, and names of versions.
constexpr std::string_view kDraftSeeds[] = {
    "\0C:\\Game\\Data\\INI\\Weapon.ini\0part\0/home/a/kept\0Weapon Gun\r\n \xC3\xA9 \xE2\x82\xAC\nEnd\n"sv,
    "C:\\Game\\Data\\INI\\Armor.ini\npart\nArmor Plate\r\n\xE9\x81\rEnd\r\n"sv,
    "00000012 2026-11-23 06.08.45Z unsaved-part-utf8 Weapon.ini"sv,
    "2026-11-23 06.08.45.123 unsaved part of Weapon.ini"sv,
};

// The first byte chooses the kind, a line for each edit follows, and an empty one.
constexpr std::string_view kEditSeeds[] = {
    "\x00"
    "a1000\nd200\nh5\n\n; units\r\nObject TankWreck2\r\nEnd\r\n"sv,
    "\x00"
    "a1000\nb4.5\nd200\n\nObject Tank ; a\r\n  BuildCost  =  900 ; was 8\r\n  BuildTime = 8.0\r\n  Body = "
    "ActiveBody Tag\r\n    MaxHealth = 5\r\n  End\r\nEnd\r\n"sv,
    "\x00"
    "iGun2\nmGun\nhWheels\n\nObject Tank\r\n  WeaponSet\r\n    Conditions = None\r\n    Weapon = PRIMARY "
    "Gun\r\n  End\r\n  Locomotor = SET_NORMAL A\r\nEnd\r\n"sv,
    "\x01"
    "b30\nc40\n\nLocomotor Tank\r\n  Surfaces = GROUND RUBBLE\r\n  Speed = 3 // 4\r\nEnd\r\n"sv,
    "\x02"
    "a5\nbLASER\n\nWeapon Tank\r  PrimaryDamage = 1.5\r End\r"sv,
    "\x03"
    "a5%\nb6%\n\nArmor Tank\r\n  Armor = FLAME 50% ; x\r\n  Armor = FLAME 5%;\r\n  Armor = LASER "
    "1%\r\nEnd\r\n"sv,
    "\x04"
    "aSTOP\n\nCommandButton Tank\r\n  Command = \"A\"\r\nEnd\r\n"sv,
    "\x05"
    "aX\nbY\njZ\n\nCommandSet Tank\r\n  1 = A\r\n 10 = B\r\nEnd\r\n"sv,
};

// Two texts with a zero byte between them.
constexpr std::string_view kCompareSeeds[] = {
    "Weapon Gun\r\n Clip = 1 ; x\r\nEnd\r\nWeapon B\nEnd\n\0Weapon B\nEnd\nweapon gun\n Clip = 2\n Clip = "
    "3\nEnd\n"sv,
    "Object A\n WeaponSet\n  Weapon = PRIMARY G\n End\n WeaponSet\n End\n Behavior = M T\n "
    "End\nEnd\n\0Object "
    "A\n Behavior = N T\n End\n WeaponSet\n  Weapon = PRIMARY H\n End\nEnd\nBenchProfile = 1\n"sv,
};

void Write(const fs::path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string DatabaseInput(const std::string& table, const std::string& memos) {
  return LittleBytes(table.size(), 2) + table + memos;
}

void WriteDatabases(const fs::path& folder) {
  {
    StockTable table(folder / "packed");
    for (const auto& [path, text] : kRecords) table.add(path, text);
    table.commit();
  }
  Write(folder / "packed", DatabaseInput(Read(folder / "packed.DBF"), Read(folder / "packed.DBT")));
  fs::remove(folder / "packed.DBF");
  fs::remove(folder / "packed.DBT");
  for (const MemoKind kind : {MemoKind::version3, MemoKind::version4}) {
    const RawDatabase raw(kRecords, kind);
    const char* name = kind == MemoKind::version3 ? "version3" : "version4";
    Write(folder / name, DatabaseInput(raw.table, raw.memos));
  }
  const RawDatabase small({{"a", "1"}}, MemoKind::version4, 16);
  Write(folder / "small", DatabaseInput(small.table, small.memos));
}

template <typename Seeds>
void WriteEach(const fs::path& folder, const Seeds& seeds) {
  int number = 0;
  for (const std::string_view seed : seeds) Write(folder / std::to_string(++number), seed);
}

fs::path Folder(const fs::path& folder) {
  fs::create_directories(folder);
  return folder;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const fs::path seeds = argv[1];
  WriteDatabases(Folder(seeds / "dbase"));
  Write(Folder(seeds / "big") / "three", ArchiveBytes(kRecords));
  Write(seeds / "big" / "none", ArchiveBytes({}));
  WriteEach(Folder(seeds / "parser"), kParserSeeds);
  WriteEach(Folder(seeds / "tree"), kTreeSeeds);
  WriteEach(Folder(seeds / "catalogue"), kCatalogueSeeds);
  WriteEach(Folder(seeds / "check"), kCheckSeeds);
  WriteEach(Folder(seeds / "baseline"), kBaselineSeeds);
  WriteEach(Folder(seeds / "ignore"), kIgnoreSeeds);
  WriteEach(Folder(seeds / "settings"), kSettingsSeeds);
  WriteEach(Folder(seeds / "drafts"), kDraftSeeds);
  WriteEach(Folder(seeds / "writing"), kCatalogueSeeds);
  WriteEach(Folder(seeds / "edit"), kEditSeeds);
  WriteEach(Folder(seeds / "compare"), kCompareSeeds);
  return 0;
}
