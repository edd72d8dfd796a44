// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace korvane {

// Counts the calls of one window that are still running, since a call that lets events run can see its own
// window closed. Such a window is hidden at once and is destroyed only after its last call has returned.
class WindowCalls {
 public:
  // One running call.
  class Running {
   public:
    explicit Running(WindowCalls& calls) : calls_(calls) { ++calls_.running_; }
    ~Running() { calls_.ended(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    WindowCalls& calls_;
  };

  bool running() const { return running_ > 0; }

  // Runs `action` now, or when the last running call has returned. The action may destroy the window only
  // through QObject::deleteLater.
  void whenIdle(std::function<void()> action);

 private:
  void ended();

  int running_ = 0;
  std::function<void()> action_;
};

}  // namespace korvane
