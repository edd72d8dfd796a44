// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WindowCalls.h"

#include <QEvent>
#include <QWidget>

namespace korvane {

WindowCalls::WindowCalls(QWidget& window, std::function<void()> gone)
    : window_(window), gone_(std::move(gone)) {
  window.installEventFilter(this);
}

void WindowCalls::close() {
  const Running call(*this);
  state_ = State::closing;
  window_.hide();
}

bool WindowCalls::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) reopen();
  return QObject::eventFilter(watched, event);
}

void WindowCalls::ended() {
  if (--running_ > 0 || state_ != State::closing) return;
  state_ = State::gone;
  gone_();
}

}  // namespace korvane
