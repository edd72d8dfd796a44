// SPDX-License-Identifier: GPL-3.0-or-later
#include "PackSources.h"

#include <filesystem>
#include <stdexcept>

#include "files/NativePath.h"
#include "ini/IniText.h"
#include "stock/GameArchives.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

class FolderSource : public PackSource {
 public:
  explicit FolderSource(std::string folder) : folder_(std::move(folder)) {}

  bool has(std::string_view path) override { return FileExists(ProgramPath(full(path))); }

  std::uint64_t size(std::string_view path) override {
    return fs::file_size(NativePath(ProgramPath(full(path))));
  }

  void read(std::string_view path, const TakePiece& take) override {
    RandomFile file;
    if (!file.open(ProgramPath(full(path))) || file.read(0, file.size(), take) != size(path)) {
      throw std::runtime_error(full(path) + ": the file cannot be read");
    }
  }

  std::vector<std::string> filesBelow(std::string_view folder) override {
    std::vector<std::string> found;
    const fs::path start = NativePath(ProgramPath(full(folder)));
    if (!fs::is_directory(start)) return found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(start)) {
      if (entry.is_regular_file())
        found.push_back(std::string(folder) + ProgramText(entry.path().lexically_relative(start)));
    }
    return found;
  }

 private:
  std::string full(std::string_view path) const { return folder_ + "\\" + std::string(path); }

  std::string folder_;
};

class ArchiveSource : public PackSource {
 public:
  explicit ArchiveSource(const std::string& path) : archive_(path) {}

  bool has(std::string_view path) override { return archive_.find(path) != nullptr; }

  std::uint64_t size(std::string_view path) override { return archive_.find(path)->size; }

  void read(std::string_view path, const TakePiece& take) override {
    archive_.read(*archive_.find(path), take);
  }

  std::vector<std::string> filesBelow(std::string_view folder) override {
    std::vector<std::string> found;
    for (const BigArchive::Entry& entry : archive_.entries()) {
      if (ToLowerAscii(entry.path).starts_with(ToLowerAscii(folder))) found.push_back(entry.path);
    }
    return found;
  }

 private:
  BigArchive archive_;
};

}  // namespace

PackSources OpenPackSources(const std::vector<std::string>& paths) {
  PackSources sources;
  for (const std::string& path : paths) {
    const bool isFolder = FolderExists(ProgramPath(path));
    if (isFolder) sources.push_back(std::make_unique<FolderSource>(path));
    for (const std::string& archive : isFolder ? ArchivesIn(path) : std::vector<std::string>{path}) {
      sources.push_back(std::make_unique<ArchiveSource>(archive));
    }
  }
  return sources;
}

}  // namespace korvane
