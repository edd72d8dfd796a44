// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace korvane {

// How the measurements work the program's windows, in the user's place. What is not there is a
// std::runtime_error.

// The visible window of the name, or null.
QWidget* ShownWindow(const QString& name);
QWidget& Window(const QString& name);

template <typename Widget>
Widget& Child(const QString& window, const QString& name) {
  auto* child = Window(window).findChild<Widget*>(name);
  if (child == nullptr) throw std::runtime_error("no " + name.toStdString());
  return *child;
}

// Runs what is pending: painting too, and the end of windows that are closed.
void Settle();
// Closes the window, if it is there, and lets it go.
void CloseWindow(const QString& name);

void Trigger(const QString& window, const QString& action);

// The two halves of a mouse click on an entry, which is in sight afterwards.
void PressOn(QAbstractItemView& view, const QModelIndex& entry);
void ReleaseOn(QAbstractItemView& view, const QModelIndex& entry);

}  // namespace korvane
