// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QImage>

namespace korvane {

class SettingsStore;

// A picture of where the numbered slots of a command set lie.
class CmdSetFormat : public QDialog {
  Q_OBJECT

 public:
  explicit CmdSetFormat(SettingsStore& store, QWidget* parent = nullptr);

  void reject() override { close(); }

 Q_SIGNALS:
  void closedForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  SettingsStore& store_;
};

}  // namespace korvane
