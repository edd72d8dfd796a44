// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

namespace korvane {

// A window of which there is one at the most: made, hidden, at first use and gone after it has been closed
// for good; the next use makes it anew. The window type has the signal closedForGood(), see WindowCalls.
template <typename Window>
class Lazy {
 public:
  explicit Lazy(std::function<Window*()> make) : make_(std::move(make)) {}
  ~Lazy() { delete window_.data(); }
  Lazy(const Lazy&) = delete;
  Lazy& operator=(const Lazy&) = delete;

  Window& get() {
    if (!window_) {
      window_ = make_();
      QObject::connect(window_, &Window::closedForGood, window_, [this, made = window_.data()] {
        if (window_ == made) window_ = nullptr;
        made->setEnabled(false);  // a click that is on its way already must not start anything in it
        made->deleteLater();
      });
    }
    return *window_;
  }

  // The window if it exists.
  Window* existing() const { return window_; }

 private:
  std::function<Window*()> make_;
  QPointer<Window> window_;
};

}  // namespace korvane
