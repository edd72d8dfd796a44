// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ToolDialog.h"

namespace korvane {

class MessageBoxes;
class Programs;
class Registry;
class SettingsStore;

// The about box: title, version and what the program is for.
class frmAbout : public ToolDialog {
  Q_OBJECT

 public:
  frmAbout(SettingsStore& store, MessageBoxes& messages, const Registry& registry, Programs& programs,
           QWidget* parent = nullptr);

  // Starts the system information program, or says that there is none.
  void StartSysInfo();

 Q_SIGNALS:
  void extrasRequested();  // show FrmFun

 private:
  QWidget* textPart();
  QWidget* buttonPart();
  void addHiddenMenu();

  MessageBoxes& messages_;
  const Registry& registry_;
  Programs& programs_;
};

}  // namespace korvane
