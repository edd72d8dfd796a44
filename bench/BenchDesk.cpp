// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchDesk.h"

#include <algorithm>
#include <fstream>
#include <string>

#include "BarePass.h"
#include "GameGenerator.h"
#include "ModificationGenerator.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "stock/StockTable.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

void MarkTheEnd(const fs::path& file) {
  std::ofstream(file, std::ios::binary | std::ios::app) << "; " << kFarthestText << "\r\n";
}

fs::path NativeOf(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::string RelativePath(const DataFile& file) {
  return std::string(file.folder.substr(1)).append(file.name);
}

void PackStock(const BenchFolders& folders) {
  StockTable table(folders.program() / "Data");
  for (const DataFile& file : kDataFiles) {
    const std::string path = RelativePath(file);
    table.add(path, ReadWhole(folders.game() / NativeOf(path)));
  }
  table.commit();
}

}  // namespace

std::vector<fs::path> BenchFolders::objectFiles() const {
  std::vector<fs::path> files;
  for (const DataFile& file : kDataFiles) {
    if (file.folder == kObjectFolder) files.push_back(objects(file.name));
  }
  return files;
}

std::vector<fs::path> BenchFolders::dataFiles() const {
  std::vector<fs::path> files;
  files.reserve(kDataFiles.size());
  for (const DataFile& file : kDataFiles) files.push_back(game() / NativeOf(RelativePath(file)));
  return files;
}

std::vector<fs::path> BenchFolders::iniFiles() const {
  std::vector<fs::path> files;
  for (const auto& each : fs::recursive_directory_iterator(ini(""))) {
    if (each.is_regular_file()) files.push_back(each.path());
  }
  return files;
}

void MakeBenchFolders(const BenchFolders& folders, int factor) {
  GenerateGame(folders.game(), factor);
  MarkTheEnd(folders.objects(kLargestFile));
  GenerateModification(folders.modification().game(), factor);
  for (const BenchFolders& each : {folders, folders.modification()}) {
    fs::create_directories(each.program());
    fs::create_directories(each.settings());
    PackStock(each);
  }
}

BenchDesk::BenchDesk(const BenchFolders& where)
    : settings(QString::fromStdString(where.settings().string())),
      folders{ProgramQText(where.game()), ProgramQText(where.program())} {
  settings.saveGameFolder(folders.game);
}

QString ProgramQText(const fs::path& native) {
  return QString::fromStdString(ProgramText(native));
}

}  // namespace korvane
