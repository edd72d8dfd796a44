// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/DataFiles.h"

namespace korvane {

namespace {

std::string Joined(std::string_view gameFolder, std::string_view folder, std::string_view name) {
  std::string path(gameFolder);
  path += folder;
  path += name;
  return path;
}

}  // namespace

std::string IniPath(std::string_view gameFolder, std::string_view relative) {
  return Joined(gameFolder, kIniFolder, relative);
}

std::string ObjectFilePath(std::string_view gameFolder, std::string_view fileName) {
  return Joined(gameFolder, kObjectFolder, fileName);
}

}  // namespace korvane
