// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/DataFiles.h"

namespace korvane {

namespace {

ProgramPath Joined(std::string_view gameFolder, std::string_view folder, std::string_view name) {
  std::string path(gameFolder);
  path += folder;
  path += name;
  return ProgramPath(path);
}

}  // namespace

ProgramPath IniPath(std::string_view gameFolder, std::string_view relative) {
  return Joined(gameFolder, kIniFolder, relative);
}

ProgramPath ObjectFilePath(std::string_view gameFolder, std::string_view fileName) {
  return Joined(gameFolder, kObjectFolder, fileName);
}

}  // namespace korvane
