// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace korvane {

class InPlaceTable;

// Offers the known damage types for the armour editor's table.
class FrmAmrPar : public QDialog {
  Q_OBJECT

 public:
  explicit FrmAmrPar(QWidget* parent = nullptr);

  void reject() override { close(); }

 Q_SIGNALS:
  // The damage type is to be added to the armour editor's table, whether that is loaded or not.
  void typeChosen(const QString& type);
  void closedForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void add();

  InPlaceTable* LV_;
};

}  // namespace korvane
