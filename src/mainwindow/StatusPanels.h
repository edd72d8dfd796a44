// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

class QLabel;
class QStatusBar;
class QToolButton;

namespace korvane {

// The three panels of the status bar: the chosen node's path, its file, and how many nodes it holds. Behind
// them, once the data have been checked, what was found. At its right end, and only when there is one, a
// trouble that the user should know of.
class StatusPanels {
 public:
  enum Panel { path, file, count };

  explicit StatusPanels(QStatusBar& bar);

  void show(Panel panel, const QString& text);
  void showProblems(const QString& counts);
  QToolButton& problems() const { return *problems_; }
  // Stays until it is replaced; an empty text takes it away. `detail`: for who points at it.
  void showTrouble(const QString& text, const QString& detail);

 private:
  std::array<QLabel*, 3> panels_{};  // the bar owns them
  QToolButton* problems_;
  QLabel* trouble_;
};

}  // namespace korvane
