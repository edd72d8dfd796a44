// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace korvane {

// A bar on the terminal for work of many steps. Shown only once the work has taken a moment, and not at all
// where nobody would see it.
class Progress {
 public:
  Progress(std::string what, std::int64_t steps);
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void stepDone();
  // Takes the bar away, so that a line can be written in its place.
  void clear();

 private:
  void draw();

  std::string what_;
  std::int64_t steps_;
  std::int64_t done_ = 0;
  bool wanted_;
  bool drawn_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace korvane
