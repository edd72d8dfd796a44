// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ToolDialog.h"

namespace korvane {

class SettingsStore;

// A picture of where the numbered slots of a command set lie.
class CmdSetFormat : public ToolDialog {
  Q_OBJECT

 public:
  explicit CmdSetFormat(SettingsStore& store, QWidget* parent = nullptr);
};

}  // namespace korvane
