// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>
#include <QWidget>

#include "controls/ClickView.h"
#include "controls/InPlaceTable.h"

namespace korvane {

// The inside of a table editor: the list of entries and, beside it, the table of the chosen one.
class ListAndTable : public QWidget {
 public:
  explicit ListAndTable(QWidget* parent = nullptr);

  QListView& list() { return *LstWPN_; }
  InPlaceTable& table() { return *LVEdit_; }

  // Gives all rows of the list one size, so that the list need not measure every name; the names are those it
  // shows.
  void fitRows(const QStringList& names);

  // The width, in pixels, at which columns of so many twips together are seen whole.
  int widthFor(int columnTwips) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  ClickView<QListView>* LstWPN_;
  InPlaceTable* LVEdit_;
};

}  // namespace korvane
