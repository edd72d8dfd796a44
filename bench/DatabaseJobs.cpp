// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "files/NativePath.h"
#include "stock/DBCtl.h"
#include "stock/StockRestoration.h"
#include "stock/StockTable.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr int kManyRecords = 100'000;

void Restore(const RunningProgram& running, const fs::path& target) {
  DBCtl database;
  const Services& services = running.desk.services;
  StockRestoration restoration(database, ProgramText(target));
  restoration.restoreAll(services.folders.program.toStdString(), [&](std::int64_t, std::int64_t) {
    services.yield.fullTurn();
    return true;
  });
}

std::function<void()> PlainWrites(const Paths& files, const fs::path& target) {
  std::vector<std::string> texts;
  for (const fs::path& file : files) texts.push_back(ReadWhole(file));
  return [texts = std::move(texts), target] {
    for (std::size_t i = 0; i < texts.size(); ++i) PlainWrite(target / std::to_string(i), texts[i]);
  };
}

Job RestoreJob(const RunningProgram& running) {
  const fs::path target = running.folders.home / "restored";
  const fs::path plain = running.folders.home / "plain";
  return {.name = "restore thirteen files",
          .promise = {.ratio = 3},
          .run = [&running, target] { Restore(running, target); },
          .bare = PlainWrites(running.folders.dataFiles(), plain),
          .prepare =
              [target, plain] {
                for (const fs::path& folder : {target, plain}) {
                  fs::remove_all(folder);
                  fs::create_directories(folder);
                }
              }};
}

void MakeManyRecords(const fs::path& folder) {
  if (fs::exists(folder)) return;
  fs::create_directories(folder);
  StockTable table(folder / "Data");
  for (int i = 0; i < kManyRecords; ++i) table.add("Data\\INI\\" + std::to_string(i) + ".ini", "End\r\n");
  table.commit();
}

void OpenDatabase(const std::string& folder) {
  DBCtl().LoadDatabase(folder, "Data");
}

Job OpenJob(const RunningProgram& running) {
  const fs::path many = running.folders.home / "many";
  return {.name = "open a database of 100,000 records",
          .promise = {.ratio = 2},
          .run = [folder = ProgramText(many)] { OpenDatabase(folder); },
          .bare = [folder = ProgramText(running.folders.program())] { OpenDatabase(folder); },
          .prepare = [many] { MakeManyRecords(many); },
          .size = Job::Size::fixed};
}

}  // namespace

Jobs DatabaseJobs(const RunningProgram& running) {
  return {RestoreJob(running), OpenJob(running)};
}

}  // namespace korvane
