// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ToolDialog.h"

namespace korvane {

class InPlaceTable;

// Offers the known damage types for the armour editor's table.
class FrmAmrPar : public ToolDialog {
  Q_OBJECT

 public:
  explicit FrmAmrPar(QWidget* parent = nullptr);

 Q_SIGNALS:
  // The damage type is to be added to the armour editor's table, whether that is loaded or not.
  void typeChosen(const QString& type);

 private:
  void add();

  InPlaceTable* LV_;
};

}  // namespace korvane
