// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EventYield.h"

#include <QCoreApplication>

namespace korvane {

namespace {

constexpr int kLinesPerLook = 64;  // reading the clock costs as much as reading a line

}  // namespace

EventYield::EventYield(std::chrono::milliseconds slice)
    : slice_(slice), lastTurn_(std::chrono::steady_clock::now()) {}

void EventYield::fullTurn() {
  runEvents();
  linesUntilLook_ = kLinesPerLook;
  lastTurn_ = std::chrono::steady_clock::now();
}

void EventYield::runEvents() {
  QCoreApplication::processEvents(holdsInput() ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void EventYield::lookAtClock() {
  linesUntilLook_ = kLinesPerLook;
  if (std::chrono::steady_clock::now() - lastTurn_ >= slice_) fullTurn();
}

}  // namespace korvane
