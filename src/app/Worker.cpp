// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Worker.h"

#include <utility>

namespace korvane {

namespace {

constexpr std::chrono::milliseconds kTellInterval(40);

}  // namespace

void Worker::Teller::operator()(std::size_t done, std::size_t all) {
  if (Clock::now() - told_ < kTellInterval) return;
  told_ = Clock::now();
  QMetaObject::invokeMethod(
      &worker_,
      [&worker = worker_, run = run_, done, all] {
        if (worker.run_ == run) Q_EMIT worker.progress(static_cast<int>(done), static_cast<int>(all));
      },
      Qt::QueuedConnection);
}

void Worker::start(Job job) {
  next_ = std::move(job);
  ++run_;
  if (isRunning()) {
    thread_.request_stop();
  } else {
    begin();
  }
}

void Worker::stop() {
  next_ = nullptr;
  ++run_;
  thread_.request_stop();
}

void Worker::begin() {
  thread_ =
      std::jthread([this, run = run_, job = std::exchange(next_, nullptr)](const std::stop_token& stop) {
        Teller tell(*this, run);
        const Deliver deliver = job(stop, tell);
        QMetaObject::invokeMethod(
            this, [this, run, deliver] { end(run, deliver); }, Qt::QueuedConnection);
      });
}

void Worker::end(int run, const Deliver& deliver) {
  thread_.join();
  thread_ = {};
  if (next_) return begin();
  if (run == run_ && deliver) deliver();
  if (!isRunning()) Q_EMIT finished();
}

}  // namespace korvane
