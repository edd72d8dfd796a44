// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <chrono>

namespace korvane {

// The longest time that passed without the event loop being entered, from the making of this object on. Every
// entry counts, whoever makes it.
class GapMeter : public QObject {
 public:
  GapMeter();
  // In milliseconds, up to now; negative when this process has no event loop.
  double longest();

 private:
  void entered();

  bool hasLoop_;
  std::chrono::steady_clock::time_point last_;
  double longest_ = 0;
};

}  // namespace korvane
