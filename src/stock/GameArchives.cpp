// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/GameArchives.h"

#include <algorithm>
#include <filesystem>

#include "files/NativePath.h"
#include "ini/IniText.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace

std::vector<std::string> ArchivesIn(std::string_view folder) {
  std::vector<std::string> found;
  for (const fs::directory_entry& entry : fs::directory_iterator(NativePath(ProgramPath(folder)))) {
    const std::string path = ProgramText(entry.path());
    if (ToLowerAscii(path).ends_with(".big") && entry.is_regular_file()) found.push_back(path);
  }
  std::sort(found.begin(), found.end());
  return found;
}

GameArchives::GameArchives(std::string_view gameFolder) {
  try {
    for (const std::string& path : ArchivesIn(gameFolder)) open(path);
  } catch (const fs::filesystem_error& error) {
    failures_.push_back("The archives cannot be read: " + error.code().message() + ".");
  }
}

void GameArchives::open(const std::string& path) {
  try {
    archives_.push_back({NameOf(path), BigArchive(path)});
  } catch (const ArchiveError& error) {
    failures_.emplace_back(error.what());
  }
}

std::vector<std::string> GameArchives::holding(std::string_view path) const {
  std::vector<std::string> names;
  for (const Archive& archive : archives_) {
    if (archive.files.find(path) != nullptr) names.push_back(archive.name);
  }
  return names;
}

void GameArchives::read(std::string_view path, const TakePiece& take) {
  for (Archive& archive : archives_) {
    const BigArchive::Entry* entry = archive.files.find(path);
    if (entry != nullptr) return archive.files.read(*entry, take);
  }
}

}  // namespace korvane
