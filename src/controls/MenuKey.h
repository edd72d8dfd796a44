// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace korvane {

// Brings the context menu of what has the keyboard for Shift+F10 too: many keyboards have no menu key, and Qt
// knows only that one, except on Windows.
class MenuKey : public QObject {
 public:
  // From now on, for as long as the application lives.
  static void install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
};

}  // namespace korvane
