// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace korvane {

// A small button in the free space at the end of a form's row. It stands outside of the layout, so that it
// never moves anything, and is not seen where there is no space for it.
class RowLink : public QToolButton {
  Q_OBJECT

 public:
  // `last`: the row's last control, which has its parent already.
  explicit RowLink(QWidget& last);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QWidget& last_;
};

}  // namespace korvane
