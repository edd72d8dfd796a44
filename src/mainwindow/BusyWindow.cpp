// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/BusyWindow.h"

#include <QWidget>

namespace korvane {

BusyWindow::BusyWindow(QWidget& window, QWidget& tree)
    : window_(window), tree_(tree), hadFocus_(tree.hasFocus()) {
  window_.setUpdatesEnabled(false);
  window_.setEnabled(false);
}

BusyWindow::~BusyWindow() {
  window_.setEnabled(true);
  if (hadFocus_) tree_.setFocus();
  showChanges();
}

// What was marked for painting before is not painted by itself any more.
void BusyWindow::showChanges() {
  window_.setUpdatesEnabled(true);
  window_.repaint();
}

}  // namespace korvane
