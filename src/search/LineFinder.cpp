// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/LineFinder.h"

#include <memory>
#include <utility>

namespace korvane {

namespace {

constexpr std::size_t kMostInBatch = 200;  // lines that a window can show within a few milliseconds
constexpr auto kBatchTime = std::chrono::milliseconds(40);

}  // namespace

bool LineFinder::Teller::found(FoundLine line) {
  if (!goesOn()) return false;
  if (total_ == kMostLines) {
    batch_.full = true;
    return false;
  }
  ++total_;
  batch_.lines.push_back(std::move(line));
  tellWhenDue();
  return true;
}

void LineFinder::Teller::step(int done, int all) {
  batch_.done = done;
  batch_.all = all;
  tellWhenDue();
}

void LineFinder::Teller::skipped(const QString& file) {
  batch_.skipped += file;
}

void LineFinder::Teller::tellWhenDue() {
  if (batch_.lines.size() >= kMostInBatch || Clock::now() - told_ >= kBatchTime) tell();
}

void LineFinder::Teller::tell() {
  told_ = Clock::now();
  auto lines = std::make_shared<FoundLines>(batch_);
  batch_.lines.clear();
  batch_.skipped.clear();
  QMetaObject::invokeMethod(
      &finder_,
      [&finder = finder_, run = run_, lines] {
        if (finder.run_ == run) Q_EMIT finder.found(*lines);
      },
      Qt::QueuedConnection);
}

void LineFinder::start(Search search) {
  worker_.request_stop();
  const int run = ++run_;
  worker_ = std::jthread([this, run, search = std::move(search)](const std::stop_token& stop) {
    Teller teller(*this, run, stop);
    search(teller);
    teller.tell();
    QMetaObject::invokeMethod(
        this, [this, run, stopped = stop.stop_requested()] { end(run, stopped); }, Qt::QueuedConnection);
  });
}

void LineFinder::stop() {
  worker_.request_stop();
}

void LineFinder::end(int run, bool stopped) {
  if (run != run_) return;
  worker_.join();
  worker_ = {};
  Q_EMIT finished(stopped);
}

}  // namespace korvane
