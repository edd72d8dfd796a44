// SPDX-License-Identifier: GPL-3.0-or-later
#include "GapMeter.h"

#include <QAbstractEventDispatcher>

#include <algorithm>

#include "Measure.h"

namespace korvane {

GapMeter::GapMeter() : hasLoop_(QAbstractEventDispatcher::instance() != nullptr), last_(Clock::now()) {
  if (!hasLoop_) return;
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
          [this] { entered(); });
}

double GapMeter::longest() {
  entered();
  return hasLoop_ ? longest_ : -1;
}

void GapMeter::entered() {
  longest_ = std::max(longest_, MillisecondsSince(last_));
  last_ = Clock::now();
}

}  // namespace korvane
