// SPDX-License-Identifier: GPL-3.0-or-later
#include "Progress.h"

#include <cstdio>

#include "Terminal.h"

namespace korvane {

namespace {

constexpr std::int64_t kWidth = 40;
constexpr int kAround = 9;  // blanks, brackets and the percentage
constexpr std::chrono::milliseconds kBefore{300};
constexpr std::chrono::milliseconds kBetween{80};

}  // namespace

Progress::Progress(std::string what, std::int64_t steps)
    : what_(std::move(what)),
      steps_(steps),
      wanted_(steps > 0 && ErrorsGoToTerminal()),
      next_(std::chrono::steady_clock::now() + kBefore) {}

void Progress::stepDone() {
  ++done_;
  const auto now = std::chrono::steady_clock::now();
  if (!wanted_ || now < next_) return;
  next_ = now + kBetween;
  draw();
}

void Progress::draw() {
  const auto filled = static_cast<std::size_t>(kWidth * done_ / steps_);
  const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
  std::fprintf(stderr, "\r%s [%s] %3d %%", what_.c_str(), bar.c_str(),
               static_cast<int>(100 * done_ / steps_));
  drawn_ = true;
}

void Progress::clear() {
  if (drawn_) std::fprintf(stderr, "\r%*s\r", static_cast<int>(what_.size() + kWidth) + kAround, "");
  drawn_ = false;
}

}  // namespace korvane
