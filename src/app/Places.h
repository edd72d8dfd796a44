// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "catalogue/Catalogue.h"

namespace korvane {

// A place in one of the INI files, for the user to go to.
struct FilePlace {
  QString path{};     // below the game folder: "Data\INI\Weapon.ini"
  QString archive{};  // the archive or further folder that has it; empty for a file of the game folder itself
  int line = 0;       // from 1
  int column = 1;     // from 1, in the file's bytes
  int length = 0;     // bytes to select

  bool operator==(const FilePlace&) const = default;
};

// A named item and where it is defined.
struct ItemPlace {
  KindId kind = kNoKind;
  QString name{};
  FilePlace place{};
};

FilePlace PlaceOf(const SourceFile& source, std::uint32_t line, std::uint32_t column, std::size_t length);
FilePlace PlaceOf(const CatalogueFile& file, std::uint32_t line, std::uint32_t column, std::size_t length);
ItemPlace ItemOf(const FoundDefinition& definition);
// A path below the game folder as it is shown: it begins below Data\INI where it lies there.
QString ShownPath(QString path);
// The last part of the archive's path, or of the further folder's.
QString ArchiveName(const QString& archive);
// "Weapon.ini, line 12", with the archive when one has it.
QString ShownPlace(const FilePlace& place);
QString KindName(KindId kind);

// Shows places and items in the windows that show them best.
class PlaceLauncher {
 public:
  virtual ~PlaceLauncher() = default;

  // The manual editor at the place, what it names selected. Remembers where the user was before.
  virtual void showPlace(const FilePlace& place) = 0;
  // The window that shows such an item best: the main window for objects that it can load, the table editors
  // for their entries, the manual editor for all others.
  virtual void showItem(const ItemPlace& item) = 0;
  // Through the places that were shown.
  virtual void goBack() = 0;
  virtual void goForward() = 0;
};

}  // namespace korvane
