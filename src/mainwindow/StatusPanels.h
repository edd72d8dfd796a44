// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

class QLabel;
class QStatusBar;

namespace korvane {

// The three panels of the status bar: the chosen node's path, its file, and how many nodes it holds.
class StatusPanels {
 public:
  enum Panel { path, file, count };

  explicit StatusPanels(QStatusBar& bar);

  void show(Panel panel, const QString& text);
  // Shows a remark in the first panel, hiding the others until they are next shown.
  void showRemark(const QString& text);

 private:
  std::array<QLabel*, 3> panels_{};  // the bar owns them
};

}  // namespace korvane
