// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RowLink.h"

#include <QEvent>

namespace korvane {

namespace {

constexpr int kGap = 6;  // pixels around the button

}  // namespace

RowLink::RowLink(QWidget& last) : QToolButton(last.parentWidget()), last_(last) {
  setAutoRaise(true);
  last.installEventFilter(this);
  last.parentWidget()->installEventFilter(this);
  place();
}

bool RowLink::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Move || event->type() == QEvent::Resize) place();
  return QToolButton::eventFilter(watched, event);
}

void RowLink::place() {
  const QRect row = last_.geometry();
  const QRect mine(row.right() + 1 + kGap, row.top(), row.height(), row.height());
  setGeometry(mine);
  setVisible(mine.right() + kGap < parentWidget()->width());
}

}  // namespace korvane
