// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// What the manual editor shows or will save to; set by the commands that open it.
struct ManualEditTarget {
  QString ManualEditFile;        // the program's full path of the file
  int ManualEditPartial = 0;     // 1: only a part of that file, which cannot be saved
  bool ManEditInitDone = false;  // cleared by every command that opens the manual editor
};

}  // namespace korvane
