// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ToolDialog.h"

namespace korvane {

class SettingsStore;

// The extras window. Its buttons do nothing yet.
class FrmFun : public ToolDialog {
  Q_OBJECT

 public:
  explicit FrmFun(SettingsStore& store, QWidget* parent = nullptr);
};

}  // namespace korvane
