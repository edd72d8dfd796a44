// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MenuKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace korvane {

void MenuKey::install() {
#ifndef Q_OS_WIN
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new MenuKey(application));
#endif
}

bool MenuKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  QWidget* focus = QApplication::focusWidget();
  if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier || focus == nullptr ||
      watched != focus)
    return false;
  const QPoint at = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, focus->mapToGlobal(at));
  QCoreApplication::sendEvent(focus, &menu);
  return true;
}

}  // namespace korvane
