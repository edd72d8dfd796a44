// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <string>
#include <vector>

#include "stock/StockRestoration.h"

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace korvane {

// What became of each missing file of the game: first the ones that could not be written and why, then the
// others and where they came from. Hidden when there is nothing to tell.
class RestoreReport : public QWidget {
 public:
  explicit RestoreReport(QWidget* parent = nullptr);

  void clear();
  // `archiveFailures`: a sentence for each archive that cannot be read.
  void show(const std::vector<RestoredFile>& files, const std::vector<std::string>& archiveFailures);

 private:
  QLabel* LblRestored_;
  QTreeWidget* LstRestored_;
};

}  // namespace korvane
