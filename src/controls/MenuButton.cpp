// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MenuButton.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMouseEvent>

namespace korvane {

MenuButton::MenuButton(QAbstractItemView& view) : QObject(&view), view_(view) {
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
}

bool MenuButton::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && watched == view_.viewport()) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->buttons().testFlag(Qt::RightButton)) Q_EMIT pressed(mouse->globalPosition().toPoint());
  }
  if (event->type() == QEvent::ContextMenu &&
      static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
    const QRect entry = view_.visualRect(view_.currentIndex());
    Q_EMIT pressed(view_.viewport()->mapToGlobal(entry.center()));
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace korvane
