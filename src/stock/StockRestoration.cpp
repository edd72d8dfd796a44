// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/StockRestoration.h"

#include <utility>

#include "files/NativePath.h"
#include "files/Windows1252.h"
#include "stock/DBCtl.h"
#include "stock/RestorePath.h"
#include "stock/WriteTextFile.h"

namespace korvane {

namespace {

constexpr int kPathField = 0;
constexpr int kTextField = 1;

}  // namespace

StockRestoration::StockRestoration(DBCtl& database, std::string gameFolder)
    : database_(database), gameFolder_(std::move(gameFolder)) {}

std::vector<RestoredFile> StockRestoration::restoreAll(std::string_view programFolder,
                                                       const RestoreStep& step) {
  std::vector<RestoredFile> files;
  database_.LoadDatabase(programFolder, "Data");
  database_.MoveNext();
  database_.MovePrevious();
  const std::int64_t all = database_.RecordCount();
  for (std::int64_t i = 1; i <= all; ++i) {
    if (auto file = restoreCurrent()) files.push_back(std::move(*file));
    database_.SetRecord(i);
    if (!step(i, all)) break;
  }
  return files;
}

std::optional<RestoredFile> StockRestoration::restoreCurrent() {
  const std::string recordPath = database_.GetData(kPathField);
  if (FileExists(ProgramPath(gameFolder_ + '\\' + Utf8FromBytes(recordPath)))) return std::nullopt;
  return restore(recordPath);
}

std::vector<std::string> StockRestoration::archiveFailures() const {
  return archives_ ? archives_->failures() : std::vector<std::string>();
}

GameArchives& StockRestoration::archives() {
  if (!archives_) archives_.emplace(gameFolder_);
  return *archives_;
}

// What exists is left alone wherever the path leads, so only a missing file's path is followed link by link,
// which takes long.
RestoredFile StockRestoration::restore(const std::string& recordPath) {
  RestoredFile file{Utf8FromBytes(recordPath)};
  const RestoreTarget target = TargetOf(gameFolder_, file.path);
  file.reason = target.reason;
  if (!file.reason.empty()) return file;
  if (!archives().empty()) file.source = RestoredFile::Source::archive;
  file.archives = archives().holding(recordPath);
  file.reason = write(file, recordPath, target.path);
  return file;
}

std::string StockRestoration::write(const RestoredFile& file, const std::string& recordPath,
                                    const std::string& target) {
  const bool fromArchive = file.source == RestoredFile::Source::archive;
  if (fromArchive && file.archives.empty()) return "it is in no archive";
  try {
    return WriteTextFile(target, [&](const TakePiece& take) {
      fromArchive ? archives().read(recordPath, take) : database_.GetData(kTextField, take);
    });
  } catch (const ArchiveError& error) {
    return error.what();
  }
}

}  // namespace korvane
