// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// The desktop's own way to open things. An interface, so that tests see what would be opened.
class DesktopShell {
 public:
  virtual ~DesktopShell() = default;

  // Opens a file, folder, program (program's path text, see NativePath.h) or web address with the desktop's
  // default action, in the working folder `dir`. Does not wait, and reports no failure.
  virtual void RunFile(const QString& filename, const QString& dir) = 0;
};

}  // namespace korvane
