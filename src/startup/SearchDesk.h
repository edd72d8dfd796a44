// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include <functional>

#include "app/EditorLauncher.h"
#include "app/NameSource.h"
#include "app/Places.h"

class QAction;
class QMainWindow;

namespace korvane {

class SearchRows;

// Carries out the search commands of all windows.
class SearchDesk {
 public:
  SearchDesk(SearchRows& rows, PlaceLauncher& places) : rows_(rows), places_(places) {}

  // "Find anything" as a field at the right end of the window's menu bar.
  void addField(QMainWindow& window, std::function<QList<QAction*>()> commands);
  // The same as a popup of the window; `goToLine` goes to a line of its file, if it shows one.
  void addPopup(QMainWindow& window, std::function<void(int)> goToLine = {});

  void carryOut(SearchCommand command, QWidget& window);

 private:
  void goToDefinition(const NameHere& name);

  SearchRows& rows_;
  PlaceLauncher& places_;
};

}  // namespace korvane
