// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/GameLedger.h"

#include <fstream>
#include <iterator>
#include <set>

namespace korvane {

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

GameLedger::GameLedger(fs::path folder, GameFiles files)
    : folder_(std::move(folder)), original_(std::move(files)) {
  for (const auto& [path, bytes] : original_) {
    if (path.ends_with(".ini")) paths_.push_back(path);
  }
  restore();
}

void GameLedger::put(const std::string& path, const std::string& bytes) {
  const fs::path target = folder_ / path;
  if (fs::is_directory(target)) fs::remove_all(target);
  fs::create_directories(target.parent_path());
  std::ofstream(target, std::ios::binary) << bytes;
}

void GameLedger::restore() {
  for (const auto& [path, bytes] : original_) put(path, bytes);
  known_ = list();
}

void GameLedger::changeOutside(Chance& chance) {
  const std::string& path = chance.oneOf(paths_);
  const fs::path target = folder_ / path;
  switch (chance.below(8)) {
    case 0:
      put(path, DamagedText(chance));
      break;
    case 1:
      if (fs::is_regular_file(target)) {
        fs::resize_file(target, static_cast<std::uintmax_t>(chance.below(2000)));
      }
      break;
    case 2:
      for (const std::string& gone : paths_) {
        if (gone == path || chance.oneIn(4)) fs::remove_all(folder_ / gone);
      }
      break;
    case 3:
      fs::remove_all(target);
      fs::create_directories(target / "inside");
      break;
    case 4:
      if (chance.oneIn(4)) fs::remove_all(target.parent_path());
      break;
    case 5:
      restore();
      break;
    default:
      put(path, original_.at(path));
  }
  known_ = list();
}

GameLedger::Entries GameLedger::list() const {
  Entries found;
  std::error_code error;
  for (const fs::directory_entry& file : fs::recursive_directory_iterator(folder_, error)) {
    Entry entry{file.last_write_time(), 0, file.is_directory(), {}};
    if (!entry.isFolder) entry.size = file.file_size();
    const std::string path = file.path().lexically_relative(folder_).generic_string();
    const auto known = known_.find(path);
    const bool same = known != known_.end() && known->second.time == entry.time &&
                      known->second.size == entry.size && known->second.isFolder == entry.isFolder;
    if (!entry.isFolder) {
      entry.bytes = same ? known->second.bytes : std::make_shared<const std::string>(ReadAll(file.path()));
    }
    found.emplace(path, std::move(entry));
  }
  return found;
}

GameLedger::Bytes GameLedger::BytesOf(const Entries& entries, const std::string& path) {
  const auto found = entries.find(path);
  return found == entries.end() ? nullptr : found->second.bytes;
}

bool GameLedger::isOriginal(const std::string& path, const std::string& bytes) const {
  const auto found = original_.find(path);
  return found != original_.end() && found->second == bytes;
}

std::vector<GameLedger::Change> GameLedger::look() {
  Entries now = list();
  std::vector<Change> changes;
  const auto compare = [&](const std::string& path) {
    const Bytes before = BytesOf(known_, path);
    const Bytes after = BytesOf(now, path);
    if (before == after) return;
    const auto textOf = [](const Bytes& bytes) { return bytes ? std::optional(*bytes) : std::nullopt; };
    Change change{path, textOf(before), textOf(after)};
    if (change.before != change.after) changes.push_back(std::move(change));
  };
  std::set<std::string> paths;
  for (const Entries* entries : {&known_, &now}) {
    for (const auto& entry : *entries) paths.insert(entry.first);
  }
  for (const std::string& path : paths) compare(path);
  known_ = std::move(now);
  return changes;
}

}  // namespace korvane
