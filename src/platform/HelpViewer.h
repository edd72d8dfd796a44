// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// Shows the program's own help file, "KORVANE.HLP" in the program folder, without blocking the caller.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  virtual void showContents() = 0;
  // A topic number that the file does not have shows the contents.
  virtual void showTopic(int topic) = 0;
};

}  // namespace korvane
