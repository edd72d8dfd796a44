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
  if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(watched, event);
  const auto* menu = static_cast<QContextMenuEvent*>(event);
  if (menu->reason() == QContextMenuEvent::Keyboard) {
    askAtCurrent();
    return true;
  }
  if (watched == view_.viewport() && view_.indexAt(menu->pos()).isValid()) Q_EMIT asked(menu->globalPos());
  return QObject::eventFilter(watched, event);
}

void MenuButton::askAtCurrent() {
  const QModelIndex current = view_.currentIndex();
  if (current.isValid()) view_.scrollTo(current);
  const QPoint at = view_.viewport()->mapToGlobal(view_.visualRect(current).center());
  Q_EMIT pressed(at);
  if (current.isValid()) Q_EMIT asked(at);
}

}  // namespace korvane
