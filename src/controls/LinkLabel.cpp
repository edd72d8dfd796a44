// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LinkLabel.h"

#include <QFocusEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace korvane {

// Qt marks the link at hand as selected text. From one at the start of the text it does not find the way back
// out by itself.
bool LinkLabel::focusNextPrevChild(bool next) {
  const int before = selectionStart();
  const bool moved = QLabel::focusNextPrevChild(next);
  tellOfLink();
  const bool isStuck = moved && hasFocus() && before >= 0 && selectionStart() == before;
  if (!isStuck) return moved;
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): the label's own way is the one that is stuck
  return QWidget::focusNextPrevChild(next);
}

void LinkLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (byTab && text().contains("<a ")) focusNextPrevChild(event->reason() == Qt::TabFocusReason);
}

void LinkLabel::tellOfLink() {
  setAccessibleDescription(hasSelectedText() ? "Link: " + selectedText() : QString());
}

void LinkLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QStylePainter painter(this);
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  frame.backgroundColor = palette().color(backgroundRole());
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, frame);
}

}  // namespace korvane
