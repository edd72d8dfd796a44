// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace korvane {

// Outlines the control that Tab has come to, where the control itself does not show it: a list, tree or text
// shows its current entry or a cursor only if it has one, and a dialog's default button always looks chosen.
class KeyboardOutline : public QObject {
 public:
  // From now on, for as long as the application lives.
  static void install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
  void show(QWidget& control);

  QPointer<QWidget> outline_;  // a child of the control that has the keyboard
};

}  // namespace korvane
