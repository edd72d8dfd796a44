// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "faults/FaultSweep.h"
#include "settings/SettingsStore.h"
#include "stock/DBCtl.h"
#include "stock/StockFiles.h"
#include "stock/StockTable.h"

namespace korvane {
namespace {

const StockRecords kOld = {{"Data\\INI\\Weapon.ini", "old weapons"}};
const StockRecords kNew = {{"Data\\INI\\Armor.ini", std::string(1500, 'a')},
                           {"Data\\INI\\Weapon.ini", "new weapons"}};

// The database's two files.
std::pair<std::string, std::string> Packed(const StockRecords& files) {
  const GameFolder folder;
  StockTable table(folder.native("Data"));
  for (const auto& [path, text] : files) table.add(path, text);
  table.commit();
  return {folder.read("Data.DBF"), folder.read("Data.DBT")};
}

void Put(const GameFolder& folder, const std::pair<std::string, std::string>& database) {
  folder.write("Data.DBF", database.first);
  folder.write("Data.DBT", database.second);
}

// The records of the database, or what the reader says of it.
std::pair<StockRecords, std::string> ReadFrom(const GameFolder& folder) {
  try {
    DBCtl database;
    database.LoadDatabase(folder.path(), "Data");
    return {ReadAll(database), {}};
  } catch (const DatabaseError& error) {
    return {{}, error.what()};
  }
}

SweptStep PackStep() {
  SweptStep step;
  step.name = "a pack";
  step.command = {KORVANE_STOCK, "pack", "--all", "-o", "@", "@/game"};
  step.prepare = [old = Packed(kOld)](const GameFolder& folder) {
    Put(folder, old);
    for (const auto& [path, text] : kNew)
      folder.write("game/Data/INI" + path.substr(8).replace(0, 1, "/"), text);
  };
  step.isDone = [](const GameFolder& folder) { return ReadFrom(folder).first == kNew; };
  step.again = step.command;
  return step;
}

TEST(StockFaults, APackGivesBothFilesOrNeither) {
  SweptStep step = PackStep();
  step.loss = [](const GameFolder& folder, const RunResult& result) {
    const auto [records, why] = ReadFrom(folder);
    // A tool that goes on to live puts the old file back, or says that it could not.
    const bool mayBeTorn = result.killed || result.text.find("is already new") != std::string::npos;
    const bool told = mayBeTorn && why.find("do not belong together") != std::string::npos;
    return told || records == kOld || records == kNew ? std::string() : "the database is ruined: " + why;
  };
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 4000, 250));
}

const std::string kMine = "my own file";

SweptStep ExtractStep(bool overwrite) {
  SweptStep step;
  step.name = overwrite ? "an extract that overwrites" : "an extract";
  step.command = {KORVANE_STOCK, "extract", "@/Data.DBF", "@/out"};
  if (overwrite) step.command.push_back("--overwrite");
  step.prepare = [database = Packed({kNew[1], kNew[0]})](const GameFolder& folder) {
    Put(folder, database);
    folder.write("out/Data/INI/Weapon.ini", kMine);
    folder.write("out/Data/INI/Weapon.ini.part", kMine);
    folder.write("out/Data/INI/Armor.ini.part", kMine);
  };
  // Only what is replaced: extracting once more brings new files back.
  step.survivesPowerCut = overwrite;
  step.loss = [overwrite](const GameFolder& folder, const RunResult& result) -> std::string {
    const std::string weapons = folder.read("out/Data/INI/Weapon.ini");
    if (weapons != kMine && !(overwrite && weapons == kNew[1].second)) return "the user's file is gone";
    const bool there = std::filesystem::exists(folder.native("out/Data/INI/Armor.ini"));
    const bool mayBePart = overwrite && result.killed;
    if (there && !mayBePart && folder.read("out/Data/INI/Armor.ini") != kNew[0].second)
      return "a part of a file is there";
    for (const char* name : {"Weapon", "Armor"}) {
      if (folder.read("out/Data/INI/" + std::string(name) + ".ini.part") != kMine)
        return "a stranger's file is gone";
    }
    return {};
  };
  step.isDone = [overwrite](const GameFolder& folder) {
    return folder.read("out/Data/INI/Armor.ini") == kNew[0].second &&
           folder.read("out/Data/INI/Weapon.ini") == (overwrite ? kNew[1].second : kMine);
  };
  return step;
}

TEST(StockFaults, AnExtractLosesNoFileAndCountsTruly) {
  for (const bool overwrite : {false, true}) {
    const SweptStep step = ExtractStep(overwrite);
    ExpectNothingLost(step, Sweep(step));
  }
}

const StockRecords kArchived = {{"Data\\INI\\Armor.ini", "the game's own armour"},
                                {"Data\\INI\\Weapon.ini", "the game's own weapons"}};

const std::string kFolderBefore = "C:\\\\Games\\\\Old";
const std::string kSettings = "settings/Command And Conquer Generals Korvane.ini";

// What is missing is written, from the game's archive where there is one.
SweptStep WizardStep(bool archive) {
  SweptStep step;
  step.name = archive ? "a wizard run with an archive" : "a wizard run";
  step.command = {KORVANE_ONE_STEP, "wizard", "@/game", "@"};
  const std::string text = (archive ? kArchived : kNew)[0].second;
  step.prepare = [archive, database = Packed(kNew)](const GameFolder& folder) {
    Put(folder, database);
    folder.write("game/generals.exe", "");
    folder.write("game/Data/INI/Weapon.ini", kMine);
    folder.write(kSettings, "[Paths]\nCCPath=" + kFolderBefore + "\n\n[Settings]\nExit=0\n");
    if (archive) folder.write("game/INI.big", ArchiveBytes(kArchived));
  };
  const auto gameFolder = [](const GameFolder& folder) {
    return SettingsStore(QString::fromStdString(folder.native("settings"))).gameFolder();
  };
  const auto chosen = [](const GameFolder& folder) { return QString::fromStdString(folder.native("game")); };
  step.loss = [=](const GameFolder& folder, const RunResult&) -> std::string {
    const std::string armour = "game/Data/INI/Armor.ini";
    if (folder.read("game/Data/INI/Weapon.ini") != kMine) return "the user's file is gone";
    const bool there = std::filesystem::exists(folder.native(armour));
    if (there && folder.read(armour) != text) return "a wrong file is there: " + folder.read(armour);
    const QString stored = gameFolder(folder);
    const bool fine = stored == "C:\\Games\\Old" || stored == chosen(folder);
    return fine && folder.read(kSettings).find("Exit=0") != std::string::npos ? "" : "settings are gone";
  };
  step.isDone = [=](const GameFolder& folder) {
    return folder.read("game/Data/INI/Armor.ini") == text && gameFolder(folder) == chosen(folder);
  };
  return step;
}

TEST(StockFaults, AWizardRunWritesWholeFilesOrSaysWhichItCouldNot) {
  for (const bool archive : {false, true}) {
    const SweptStep step = WizardStep(archive);
    ExpectNothingLost(step, Sweep(step));
    ExpectNothingLost(step, SweepFreeSpace(step, 1500, 100));
  }
}

}  // namespace
}  // namespace korvane
