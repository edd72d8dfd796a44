// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

class FrmEdit;

// What the splash window's load sequence asks of the other windows.
class StartupWindows {
 public:
  virtual ~StartupWindows() = default;

  // The main window; made, hidden, at the first call.
  virtual FrmEdit& mainWindow() = 0;
  // Asking makes the wizard, hidden, if it does not exist yet.
  virtual bool wizardVisible() = 0;
  virtual void showWizard() = 0;
  virtual void hideWizard() = 0;
  // Destroys the embedded folder chooser, if there is one.
  virtual void CloseBrowse() = 0;
};

}  // namespace korvane
