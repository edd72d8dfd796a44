// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/UserFile.h"

#include <filesystem>

#include "app/Services.h"
#include "files/NativePath.h"

namespace korvane {

namespace {

namespace fs = std::filesystem;

// Below the folder; empty for a file outside of it.
QString PathBelow(const QString& folder, const QString& file) {
  std::error_code ignored;
  const auto real = [&ignored](const QString& path) {
    return fs::weakly_canonical(NativePath(ProgramPath(path.toStdString())), ignored);
  };
  const fs::path below = real(file).lexically_relative(real(folder));
  const bool outside = below.empty() || *below.begin() == ".." || below == ".";
  return outside ? QString() : QString::fromStdString(ProgramText(below));
}

}  // namespace

ManualEditRequest RequestForUserFile(const QString& file, const Folders& folders) {
  const QString below = folders.game.isEmpty() ? QString() : PathBelow(folders.game, file);
  const bool isOfGame = below.endsWith(".ini", Qt::CaseInsensitive);
  ManualEditRequest request;
  request.ManualEditFile = isOfGame ? folders.game + '\\' + below : file;
  request.onlyRead = !isOfGame;
  return request;
}

bool IsDataFile(const QString& path) {
  return path.startsWith("Data\\INI\\", Qt::CaseInsensitive) && path.endsWith(".ini", Qt::CaseInsensitive);
}

}  // namespace korvane
