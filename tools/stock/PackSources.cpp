// SPDX-License-Identifier: GPL-3.0-or-later
#include "PackSources.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <stdexcept>

#include "files/NativePath.h"
#include "ini/IniText.h"
#include "stock/BigArchive.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

class FolderSource : public PackSource {
 public:
  explicit FolderSource(std::string folder) : folder_(std::move(folder)) {}

  bool has(std::string_view path) override { return FileExists(full(path)); }

  std::uint64_t size(std::string_view path) override { return fs::file_size(NativePath(full(path))); }

  void read(std::string_view path, const TakePiece& take) override {
    RandomFile file;
    if (!file.open(full(path)) || file.read(0, file.size(), take) != size(path)) {
      throw std::runtime_error(full(path) + ": the file cannot be read");
    }
  }

  std::vector<std::string> filesBelow(std::string_view folder) override {
    std::vector<std::string> found;
    const fs::path start = NativePath(full(folder));
    if (!fs::is_directory(start)) return found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(start)) {
      if (entry.is_regular_file())
        found.push_back(std::string(folder) + ProgramPath(entry.path().lexically_relative(start)));
    }
    return found;
  }

 private:
  std::string full(std::string_view path) const { return folder_ + "\\" + std::string(path); }

  std::string folder_;
};

class ArchiveSource : public PackSource {
 public:
  explicit ArchiveSource(const std::string& path) : archive_(path) {
    for (const BigArchive::Entry& entry : archive_.entries())
      entries_.emplace(ToLowerAscii(entry.path), &entry);
  }

  bool has(std::string_view path) override { return entries_.contains(ToLowerAscii(path)); }

  std::uint64_t size(std::string_view path) override { return entry(path).size; }

  void read(std::string_view path, const TakePiece& take) override { archive_.read(entry(path), take); }

  std::vector<std::string> filesBelow(std::string_view folder) override {
    std::vector<std::string> found;
    for (const auto& [lowerPath, entry] : entries_) {
      if (lowerPath.starts_with(ToLowerAscii(folder))) found.push_back(entry->path);
    }
    return found;
  }

 private:
  const BigArchive::Entry& entry(std::string_view path) const { return *entries_.at(ToLowerAscii(path)); }

  BigArchive archive_;
  std::map<std::string, const BigArchive::Entry*> entries_;  // by the path in small letters
};

std::vector<std::string> ArchivesIn(const std::string& folder) {
  std::vector<std::string> found;
  for (const fs::directory_entry& entry : fs::directory_iterator(NativePath(folder))) {
    const std::string path = ProgramPath(entry.path());
    if (entry.is_regular_file() && ToLowerAscii(path).ends_with(".big")) found.push_back(path);
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace

PackSources OpenPackSources(const std::vector<std::string>& paths) {
  PackSources sources;
  for (const std::string& path : paths) {
    const bool isFolder = FolderExists(path);
    if (isFolder) sources.push_back(std::make_unique<FolderSource>(path));
    for (const std::string& archive : isFolder ? ArchivesIn(path) : std::vector<std::string>{path}) {
      sources.push_back(std::make_unique<ArchiveSource>(archive));
    }
  }
  return sources;
}

}  // namespace korvane
