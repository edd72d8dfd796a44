// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/GameLedger.h"

#ifdef __unix__
#include <sys/stat.h>
#endif

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

bool IsThere(const fs::path& path) {
  std::error_code none;
  return fs::exists(fs::symlink_status(path, none));
}

// A folder with all that is in it, whatever may be read of it.
void RemoveAll(const fs::path& path) {
  if (fs::is_directory(fs::symlink_status(path))) {
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add);
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) RemoveAll(entry.path());
  }
  fs::remove(path);
}

// What is no file, where one was.
void PutOddity(const fs::path& target, Chance& chance) {
  fs::create_directories(target.parent_path());
  switch (chance.below(4)) {
    case 0:
      fs::create_directories(target / "inside");
      return;
    case 1:  // it leads to itself
      return fs::create_symlink(target.filename(), target);
    case 2:
      return fs::create_directory_symlink(".", target);
    default:
#ifdef __unix__
      ::mkfifo(target.c_str(), S_IRUSR | S_IWUSR);
#endif
  }
}

}  // namespace

GameLedger::GameLedger(fs::path folder, GameFiles files)
    : folder_(std::move(folder)), original_(std::move(files)) {
  for (const auto& [path, bytes] : original_) {
    if (path.ends_with(".ini")) paths_.push_back(path);
    if (path.ends_with(".big") || path.ends_with(".BIG")) archives_.push_back(path);
  }
  restore();
}

// Makes the folders above it usable again.
void GameLedger::reach(const fs::path& target) const {
  std::error_code none;
  fs::path at = folder_;
  for (const fs::path& name : target.lexically_relative(folder_)) {
    if (fs::is_directory(at, none)) fs::permissions(at, fs::perms::owner_all, fs::perm_options::add);
    at /= name;
  }
}

// Makes it an ordinary file again, or nothing.
void GameLedger::makeWritable(const fs::path& target) const {
  reach(target);
  if (IsThere(target) && !fs::is_regular_file(fs::symlink_status(target))) RemoveAll(target);
  if (IsThere(target)) fs::permissions(target, fs::perms::owner_all, fs::perm_options::add);
}

void GameLedger::put(const std::string& path, const std::string& bytes) {
  const fs::path target = folder_ / path;
  makeWritable(target);
  fs::create_directories(target.parent_path());
  std::ofstream(target, std::ios::binary) << bytes;
}

void GameLedger::restore() {
  for (const auto& [path, bytes] : original_) put(path, bytes);
  known_ = list();
}

void GameLedger::changeOutside(Chance& chance) {
  const std::string& path = chance.oneOf(paths_);
  if (chance.oneIn(8) && !archives_.empty()) {
    put(chance.oneOf(archives_), ChangedArchive(chance));
  } else if (chance.oneIn(3)) {
    changeMany(path, chance);
  } else {
    makeWritable(folder_ / path);
    changeFile(path, chance);
  }
  known_ = list();
}

void GameLedger::changeFile(const std::string& path, Chance& chance) {
  const fs::path target = folder_ / path;
  const bool isThere = IsThere(target);
  switch (chance.below(9)) {
    case 0:
      return put(path, DamagedText(chance));
    case 1:
      if (isThere) fs::resize_file(target, static_cast<std::uintmax_t>(chance.below(2000)));
      return;
    case 2:  // what cannot be read
      if (isThere) fs::permissions(target, fs::perms::none);
      return;
    case 3:  // a file of its own in the place of this one
      if (isThere) {
        fs::copy_file(target, folder_ / "new", fs::copy_options::overwrite_existing);
        fs::rename(folder_ / "new", target);
      }
      return;
    case 4:
      if (isThere) fs::last_write_time(target, fs::file_time_type::clock::now());
      return;
    case 5:
      fs::remove(target);
      return;
    case 6:
      fs::remove(target);
      return PutOddity(target, chance);
    default:
      put(path, original_.at(path));
  }
}

void GameLedger::changeMany(const std::string& path, Chance& chance) {
  const fs::path folder = (folder_ / path).parent_path();
  reach(folder_ / path);
  switch (chance.below(6)) {
    case 0:
      for (const std::string& gone : paths_) {
        makeWritable(folder_ / gone);
        if (gone == path || chance.oneIn(4)) RemoveAll(folder_ / gone);
      }
      return;
    case 1:
      if (chance.oneIn(4) && IsThere(folder)) RemoveAll(folder);
      return;
    case 2:
      if (IsThere(folder)) fs::permissions(folder, fs::perms::none);
      return;
    case 3:
      if (IsThere(folder)) fs::permissions(folder, fs::perms::owner_write, fs::perm_options::remove);
      return;
    default:
      restore();
  }
}

GameLedger::Entries GameLedger::list() const {
  Entries found;
  std::error_code error;
  constexpr auto kOptions = fs::directory_options::skip_permission_denied;
  for (const fs::directory_entry& file : fs::recursive_directory_iterator(folder_, kOptions, error)) {
    const std::string path = file.path().lexically_relative(folder_).generic_string();
    Entry entry;
    if (file.is_regular_file(error)) {
      entry.time = file.last_write_time();
      entry.size = file.file_size();
      const auto known = known_.find(path);
      const bool same = known != known_.end() && known->second.bytes && known->second.time == entry.time &&
                        known->second.size == entry.size;
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
