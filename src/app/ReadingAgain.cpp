// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ReadingAgain.h"

#include <chrono>
#include <utility>

namespace korvane {

namespace {

constexpr auto kUntilNextTry = std::chrono::milliseconds(50);

}  // namespace

ReadingAgain::ReadingAgain(std::function<bool()> read) : read_(std::move(read)) {
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, [this] {
    if (!read_()) next_.start(kUntilNextTry);
  });
}

void ReadingAgain::start() {
  next_.start(0);
}

Notice ReadAgainNotice(const QString& file, Notice::Follow read) {
  Notice notice(file.mid(file.lastIndexOf('\\') + 1) + " was saved after this was read. ");
  notice.link("Read again", std::move(read)).say(" (what is typed here goes).");
  return notice;
}

}  // namespace korvane
