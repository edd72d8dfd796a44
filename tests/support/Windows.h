// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace korvane {

// The first top-level window of the name that fits, or null.
template <typename Fits>
QWidget* FirstWindow(const char* name, Fits&& fits) {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto found = std::ranges::find_if(
      windows, [&](const QWidget* window) { return window->objectName() == name && fits(*window); });
  return found == windows.end() ? nullptr : *found;
}

// A window that need not be on the screen.
inline QWidget* WindowNamed(const char* name) {
  return FirstWindow(name, [](const QWidget&) { return true; });
}

inline QWidget* VisibleWindow(const char* name) {
  return FirstWindow(name, [](const QWidget& window) { return window.isVisible(); });
}

}  // namespace korvane
