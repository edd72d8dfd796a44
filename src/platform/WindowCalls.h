// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace korvane {

// How a window closes for good. A call of its own that lets events run can see it closed: the window is then
// hidden at once, and can go only when its last call has returned. One that was shown again by then stays.
class WindowCalls : public QObject {
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

  // `gone` tells the owner that the window can go; it may destroy it only through QObject::deleteLater.
  WindowCalls(QWidget& window, std::function<void()> gone);

  // Hides the window. Its close event calls this once it is clear that the window closes.
  void close();
  // The window is going to be shown again. Showing it says so too.
  void reopen() { state_ = State::open; }
  bool isClosed() const { return state_ != State::open; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class State { open, closing, gone };

  void ended();

  QWidget& window_;
  std::function<void()> gone_;
  int running_ = 0;
  State state_ = State::open;
};

}  // namespace korvane
