// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <string_view>

namespace korvane {

class DBCtl;
class FileWriter;

// Told after each record how many of all are done. False ends the restoring; the database is then left alone,
// so that another restoring may already be using it.
using RestoreStep = std::function<bool(std::int64_t done, std::int64_t all)>;

// Writes every file of the stock database "Data" in the program folder that is missing below the game folder,
// with exactly the bytes of its memo. A path that leads out of the game folder and a file that cannot be
// written are passed over. Throws DatabaseError when the database cannot be read.
void RestoreStockFiles(DBCtl& database, const FileWriter& writer, const QString& programFolder,
                       const QString& gameFolder, const RestoreStep& step);

// Makes every folder on the program's path, then writes the new file. All failures are ignored.
void WriteTextFile(const FileWriter& writer, const QString& path, std::string_view text);

}  // namespace korvane
