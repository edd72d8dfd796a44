// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace korvane {

// A label whose links the keyboard goes through: to the first at once, on to the next by Tab, and out behind
// the last. It shows that it has the keyboard, and a screen reader hears which link it is at.
class LinkLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 protected:
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void tellOfLink();
};

}  // namespace korvane
