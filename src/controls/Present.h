// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace korvane {

// Shows a modeless window and brings it to the front; a maximised one stays so.
inline void Present(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace korvane
