// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace korvane {

// Has a window painted again whose updates were disabled, in its next turn.
void PaintSoon(QWidget& window);

// Keeps the main window disabled while an object lives. The window is not painted anew for that unless it
// lasts, so that a quick click flashes nothing, and the focus is back in the tree afterwards.
class BusyWindow {
 public:
  BusyWindow(QWidget& window, QWidget& tree);
  ~BusyWindow();
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;

  // Paints the window from now on.
  void showChanges();

 private:
  QWidget& window_;
  QWidget& tree_;
  bool hadFocus_;
};

// What the user did while the window was busy comes in when it no longer is: the keys count, the clicks do
// not. The window is not painted before an object of this is gone, for the keys may change it.
class KeysOfBusyWindow : public QObject {
 public:
  // Lets the waiting events in.
  explicit KeysOfBusyWindow(QWidget& window);
  ~KeysOfBusyWindow() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
};

}  // namespace korvane
