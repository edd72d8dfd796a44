// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WindowCalls.h"

#include <utility>

namespace korvane {

void WindowCalls::whenIdle(std::function<void()> action) {
  if (running()) {
    action_ = std::move(action);
  } else {
    action();
  }
}

void WindowCalls::ended() {
  if (--running_ > 0 || !action_) return;
  std::exchange(action_, nullptr)();
}

}  // namespace korvane
