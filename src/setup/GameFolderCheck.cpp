// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/GameFolderCheck.h"

#include <QElapsedTimer>

#include "files/NativePath.h"
#include "ini/DataFiles.h"

namespace korvane {

namespace {

constexpr int kRestPerLook = 50;  // pause after a look, as a multiple of its duration

}  // namespace

bool HoldsGame(const QString& folder) {
  return FileExists(ProgramPath(folder.toStdString().append("\\").append(kGameProgram)));
}

bool GameFolderCheck::holdsGame(const QString& folder) {
  if (folder == folder_ && !nextLook_.hasExpired()) return holdsGame_;
  QElapsedTimer look;
  look.start();
  folder_ = folder;
  holdsGame_ = HoldsGame(folder);
  nextLook_.setPreciseRemainingTime(0, kRestPerLook * look.nsecsElapsed());
  return holdsGame_;
}

}  // namespace korvane
