// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace korvane {

class SettingsStore;

// The extras window. Its buttons do nothing yet.
class FrmFun : public QDialog {
  Q_OBJECT

 public:
  explicit FrmFun(SettingsStore& store, QWidget* parent = nullptr);

  void reject() override { close(); }

 Q_SIGNALS:
  void closedForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  SettingsStore& store_;
};

}  // namespace korvane
