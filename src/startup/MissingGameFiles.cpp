// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/MissingGameFiles.h"

#include <string>

#include "files/NativePath.h"
#include "ini/DataFiles.h"

namespace korvane {

std::vector<Notice> MissingGameFiles(std::string_view gameFolder) {
  QStringList names;
  for (const DataFile& file : kDataFiles) {
    const std::string path = std::string(gameFolder).append(file.folder).append(file.name);
    if (!FileExists(ProgramPath(path))) names += QString::fromUtf8(file.name);
  }
  if (names.isEmpty()) return {};
  const QString which = names.join(", ");
  if (names.size() == 1) return {Notice("1 file is missing in the game folder: " + which + ".")};
  return {Notice(QString("%1 files are missing in the game folder: %2.").arg(names.size()).arg(which))};
}

}  // namespace korvane
