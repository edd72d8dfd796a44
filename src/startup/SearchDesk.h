// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

#include "app/EditorLauncher.h"
#include "app/NameSource.h"
#include "app/Places.h"

class QMainWindow;

namespace korvane {

class Commands;
class SearchRows;
class UsesWindow;

// Carries out the search commands of all windows.
class SearchDesk {
 public:
  SearchDesk(SearchRows& rows, PlaceLauncher& places, std::function<UsesWindow&()> usesWindow)
      : rows_(rows), places_(places), usesWindow_(std::move(usesWindow)) {}

  // "Find anything" as a field at the right end of the window's menu bar.
  void addField(QMainWindow& window, const Commands& commands);
  // The same as a popup of the window; `goToLine` goes to a line of its file, if it shows one.
  void addPopup(QWidget& window, const Commands& commands, std::function<void(int)> goToLine = {});

  void carryOut(SearchCommand command, QWidget& window);
  // Goes there once the names are read as the files are now, unless the user goes elsewhere meanwhile.
  void goToDefinition(const NameHere& name);
  // See EditorLauncher.
  QString tellOfName(const NameHere& name) const;

 private:
  std::optional<ItemPlace> definitionOf(const NameHere& name) const;
  void listNamesUsed(const ItemPlace& block);
  void findUses(const NameHere& name);
  void findInFiles(const QString& text);

  SearchRows& rows_;
  PlaceLauncher& places_;
  std::function<UsesWindow&()> usesWindow_;
  QMetaObject::Connection waiting_;  // for the names, with a definition to go to
};

}  // namespace korvane
