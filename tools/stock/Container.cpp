// SPDX-License-Identifier: GPL-3.0-or-later
#include "Container.h"

#include <algorithm>
#include <stdexcept>

#include "files/NativePath.h"
#include "files/Windows1252.h"
#include "ini/IniText.h"
#include "stock/BigArchive.h"
#include "stock/DBCtl.h"
#include "stock/RandomFile.h"

namespace korvane {

namespace {

class DatabaseContainer : public Container {
 public:
  explicit DatabaseContainer(const std::string& path) { database_.LoadDatabase("", path); }
  std::int64_t count() override { return database_.RecordCount(); }
  void goTo(std::int64_t index) override { database_.SetRecord(index); }
  std::string path() override { return Utf8FromBytes(database_.GetData(0)); }
  void read(const TakePiece& take) override { database_.GetData(1, take); }

 private:
  DBCtl database_;
};

class ArchiveContainer : public Container {
 public:
  explicit ArchiveContainer(const std::string& path) : archive_(path) {}
  std::int64_t count() override { return static_cast<std::int64_t>(archive_.entries().size()); }
  void goTo(std::int64_t index) override { at_ = static_cast<std::size_t>(index); }
  std::string path() override { return Utf8FromBytes(archive_.entries()[at_].path); }
  void read(const TakePiece& take) override { archive_.read(archive_.entries()[at_], take); }

 private:
  BigArchive archive_;
  std::size_t at_ = 0;
};

bool IsArchive(const std::string& path) {
  RandomFile file;
  return file.open(ProgramPath(path)) && file.read(0, kBigArchiveMark.size()) == kBigArchiveMark;
}

}  // namespace

std::unique_ptr<Container> OpenContainer(const std::string& path) {
  if (IsArchive(path)) return std::make_unique<ArchiveContainer>(path);
  if (FileExists(ProgramPath(path)) && !ToLowerAscii(path).ends_with(".dbf")) {
    throw std::runtime_error(path + ": neither a dBASE table (.DBF) nor an archive");
  }
  return std::make_unique<DatabaseContainer>(path);
}

std::string Counted(std::uint64_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

}  // namespace korvane
