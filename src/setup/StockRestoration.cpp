// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/StockRestoration.h"

#include <filesystem>
#include <optional>

#include "files/NativePath.h"
#include "files/Windows1252.h"
#include "platform/FileWriter.h"
#include "stock/DBCtl.h"
#include "stock/RestorePath.h"

namespace korvane {

namespace {

constexpr int kPathField = 0;
constexpr int kTextField = 1;

// What exists is left alone wherever the path leads, so only a missing file's path is followed link by link,
// which takes long.
void RestoreCurrent(DBCtl& database, const FileWriter& writer, const QString& gameFolder) {
  const std::string folder = gameFolder.toStdString();
  const std::string relative = Utf8FromBytes(database.GetData(kPathField));
  if (FileExists(folder + '\\' + relative)) return;
  const std::optional<std::string> target = SafeTarget(folder, relative);
  if (target) WriteTextFile(writer, QString::fromStdString(*target), database.GetData(kTextField));
}

}  // namespace

void RestoreStockFiles(DBCtl& database, const FileWriter& writer, const QString& programFolder,
                       const QString& gameFolder, const RestoreStep& step) {
  database.LoadDatabase(programFolder.toStdString(), "Data");
  database.MoveNext();
  database.MovePrevious();
  const std::int64_t all = database.RecordCount();
  for (std::int64_t i = 1; i <= all; ++i) {
    RestoreCurrent(database, writer, gameFolder);
    database.SetRecord(i);
    if (!step(i, all)) return;
  }
}

void WriteTextFile(const FileWriter& writer, const QString& path, std::string_view text) {
  std::error_code ignored;
  for (qsizetype end = path.indexOf('\\'); end >= 0; end = path.indexOf('\\', end + 1)) {
    std::filesystem::create_directory(NativePath(path.first(end + 1).toStdString()), ignored);
  }
  static_cast<void>(writer.create(path, text));
}

}  // namespace korvane
