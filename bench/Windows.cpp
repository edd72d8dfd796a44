// SPDX-License-Identifier: GPL-3.0-or-later
#include "Windows.h"

#include <QAction>
#include <QApplication>
#include <QTest>

namespace korvane {

QWidget* ShownWindow(const QString& name) {
  for (QWidget* shown : QApplication::topLevelWidgets()) {
    if (shown->objectName() == name && shown->isVisible()) return shown;
  }
  return nullptr;
}

QWidget& Window(const QString& name) {
  QWidget* shown = ShownWindow(name);
  if (shown == nullptr) throw std::runtime_error("no window " + name.toStdString());
  return *shown;
}

void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

void CloseWindow(const QString& name) {
  if (QWidget* shown = ShownWindow(name)) shown->close();
  Settle();
}

void Trigger(const QString& window, const QString& action) {
  Child<QAction>(window, action).trigger();
}

void PressOn(QAbstractItemView& view, const QModelIndex& entry) {
  view.scrollTo(entry, QAbstractItemView::PositionAtCenter);
  Settle();
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, view.visualRect(entry).center());
  Settle();
}

void ReleaseOn(QAbstractItemView& view, const QModelIndex& entry) {
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, view.visualRect(entry).center());
}

}  // namespace korvane
