// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/BusyWindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace korvane {

namespace {

constexpr int kLongestPlay = 20;  // milliseconds

}  // namespace

// What was marked for painting before is not painted by itself any more. The painting waits for the window's
// next turn, so that a key or a click that is already on its way need not wait for it.
void PaintSoon(QWidget& window) {
  window.setUpdatesEnabled(true);
  QMetaObject::invokeMethod(&window, qOverload<>(&QWidget::repaint), Qt::QueuedConnection);
}

BusyWindow::BusyWindow(QWidget& window, QWidget& tree)
    : window_(window), tree_(tree), hadFocus_(tree.hasFocus()) {
  window_.setUpdatesEnabled(false);
  window_.setEnabled(false);
}

BusyWindow::~BusyWindow() {
  window_.setEnabled(true);
  if (hadFocus_) tree_.setFocus();
  showChanges();
}

void BusyWindow::showChanges() {
  PaintSoon(window_);
}

KeysOfBusyWindow::KeysOfBusyWindow(QWidget& window) : window_(window) {
  QCoreApplication::instance()->installEventFilter(this);
  window_.setUpdatesEnabled(false);
  QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestPlay);
}

KeysOfBusyWindow::~KeysOfBusyWindow() {
  PaintSoon(window_);
}

bool KeysOfBusyWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
      return watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == &window_;
    default:
      return false;
  }
}

}  // namespace korvane
