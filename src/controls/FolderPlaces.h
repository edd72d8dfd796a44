// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QList>
#include <QString>

namespace korvane {

// Where a folder tree begins.
struct FolderPlace {
  QString label;
  QString path;    // the program's path text
  QString native;  // the same folder on this machine, with slashes; opens only if it is UTF-8
  QIcon icon;
};

// The drives; on a machine without drives "/", the home folder, the Wine prefix's drive C and the folders in
// which programs that run Windows games keep them, as far as they exist.
QList<FolderPlace> StandardPlaces();

}  // namespace korvane
