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

// The drives; on a machine without drives "/", the home folder and, where it exists, the Wine prefix's
// drive C.
QList<FolderPlace> StandardPlaces();

}  // namespace korvane
