// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Extraction.h"

#include "catalogue/SourceFiles.h"
#include "files/NativePath.h"
#include "stock/RestorePath.h"
#include "stock/WriteTextFile.h"

namespace korvane {

namespace {

constexpr std::string_view kFolder = "data\\ini\\";
constexpr std::string_view kEnding = ".ini";

bool IsDataPath(std::string_view path) {
  const std::string compared = ComparedPath(path);
  return compared.starts_with(kFolder) && compared.ends_with(kEnding);
}

}  // namespace

std::string ExtractText(std::string_view gameFolder, std::string_view path, std::string_view bytes) {
  if (!IsDataPath(path)) return "its path is none of a file below Data\\INI";
  const RestoreTarget target = TargetOf(gameFolder, path);
  if (!target.reason.empty()) return target.reason;
  const ProgramPath file(target.path);
  if (FileExists(file) || FolderExists(file)) return "there is a file of this name already";
  return WriteTextFile(target.path, [bytes](const TakePiece& take) { take(bytes); });
}

}  // namespace korvane
