// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/LineEnds.h"

#include <QStringList>

#include <string>

#include "files/FilePieces.h"
#include "ini/DataFiles.h"

namespace korvane {

namespace {

// Stops at the first CR, which stands in the first line of nearly every file.
bool HasOnlyUnixLineEnds(FilePieces& file, const std::string& path) {
  if (!file.open(path)) return false;
  bool hasLf = false;
  while (!file.atEnd()) {
    const std::string_view bytes = file.next(0);
    if (bytes.find('\r') != std::string_view::npos) return false;
    hasLf = hasLf || bytes.find('\n') != std::string_view::npos;
  }
  return hasLf;
}

QStringList FilesWithUnixLineEnds(std::string_view gameFolder) {
  QStringList names;
  FilePieces pieces;
  for (const DataFile& file : kDataFiles) {
    std::string path(gameFolder);
    path.append(file.folder).append(file.name);
    if (HasOnlyUnixLineEnds(pieces, path)) names += QString::fromUtf8(file.name);
  }
  return names;
}

}  // namespace

QString RemarkOnUnixLineEnds(std::string_view gameFolder) {
  const QStringList names = FilesWithUnixLineEnds(gameFolder);
  if (names.isEmpty()) return {};
  if (names.size() == 1) {
    return names[0] +
           " has Unix line ends and reads as one line; open and save it in the manual editor to convert it";
  }
  return names.join(", ") +
         " have Unix line ends and read as one line each; open and save them in the manual editor to convert "
         "them";
}

}  // namespace korvane
