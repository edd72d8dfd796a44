// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "app/PlaceHistory.h"
#include "app/Places.h"
#include "app/Services.h"

class QWidget;

namespace korvane {

class EditorLauncher;
class FrmEdit;

// Shows places and items in the program's windows, and goes back and forward through those it has shown.
class PlaceOpener : public PlaceLauncher {
 public:
  PlaceOpener(const Services& services, EditorLauncher& launcher, std::function<FrmEdit&()> mainWindow)
      : services_(services), launcher_(launcher), mainWindow_(std::move(mainWindow)) {}

  void showPlace(const FilePlace& place) override;
  void showItem(const ItemPlace& item) override;
  void goBack() override;
  void goForward() override;

  // Asks, and writes what the manual editor shows of an archive as a file of its own, which it then shows.
  // True when that is done.
  bool extract(const FilePlace& place, QWidget& window);

 private:
  bool show(const ItemPlace& item);
  bool showInOwnWindow(const ItemPlace& item);
  void edit(const FilePlace& place);

  const Services& services_;
  EditorLauncher& launcher_;
  std::function<FrmEdit&()> mainWindow_;
  PlaceHistory history_;
};

}  // namespace korvane
