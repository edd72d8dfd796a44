// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DesktopShell.h"

namespace korvane {

class HelpViewer;

// On Windows the shell's default action. Elsewhere xdg-open; a ".exe" goes to wine where it is installed. The
// program's own help file opens in the program's help viewer everywhere.
class PlatformShell : public DesktopShell {
 public:
  // `helpFile`: the program's path of the application's help file.
  PlatformShell(HelpViewer& help, QString helpFile) : help_(help), helpFile_(std::move(helpFile)) {}

  void RunFile(const QString& filename, const QString& dir) override;

 private:
  HelpViewer& help_;
  QString helpFile_;
};

}  // namespace korvane
