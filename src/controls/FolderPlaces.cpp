// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FolderPlaces.h"

#include <QDir>

#include "controls/GameLibraries.h"
#include "controls/Icons.h"
#include "files/NativePath.h"
#include "platform/NativeText.h"

namespace korvane {

namespace {

QString WithBackslashes(QString path) {
  return path.replace('/', '\\');
}

}  // namespace

#ifdef Q_OS_WIN

QList<FolderPlace> StandardPlaces() {
  QList<FolderPlace> places;
  for (const QFileInfo& drive : QDir::drives()) {
    const QString path = WithBackslashes(drive.path());
    places += {path, path, drive.path(), ThemeIcon("drive")};
  }
  return places;
}

#else

QList<FolderPlace> StandardPlaces() {
  const QString home = QDir::homePath();
  QList<FolderPlace> places = {
      {"/", "\\", "/", ThemeIcon("drive")},
      {QString("Home (%1)").arg(home), WithBackslashes(home), home, ThemeIcon("home")}};
  const std::string driveC = "C:\\";
  if (FolderExists(ProgramPath(driveC))) {
    places += {QString::fromStdString(driveC), QString::fromStdString(driveC),
               NativeText(ProgramPath(driveC)), ThemeIcon("drive")};
  }
  return places + GameLibraries(places);
}

#endif

}  // namespace korvane
