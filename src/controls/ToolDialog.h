// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "platform/WindowCalls.h"

namespace korvane {

class SettingsStore;

// A small modeless window. Escape closes it as its close box does; it can go once it is closed.
class ToolDialog : public QDialog {
  Q_OBJECT

 public:
  // `placements`: where closing saves the window's placement; none for a window that keeps no placement.
  ToolDialog(QWidget* parent, SettingsStore* placements) : QDialog(parent), placements_(placements) {}

  void reject() override { close(); }

 Q_SIGNALS:
  // The window can go, see WindowCalls.
  void closedForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;

  WindowCalls calls_{*this, [this] { Q_EMIT closedForGood(); }};

 private:
  SettingsStore* placements_;
};

}  // namespace korvane
