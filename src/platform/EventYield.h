// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace korvane {

// Lets pending window events run in the middle of long work on the one user-interface thread. While they
// run, the user can click anything: callers guard what must not start twice.
class EventYield {
 public:
  // `slice`: for how long work goes on without letting events run.
  explicit EventYield(std::chrono::milliseconds slice = std::chrono::milliseconds(8));
  virtual ~EventYield() = default;

  // Call it for every line read. It costs almost nothing and enters the event loop only when a time slice has
  // passed since it was last entered.
  void perLine() {
    if (--linesUntilLook_ <= 0) lookAtClock();
  }

  // Enters the event loop now, for steps that must be seen at once.
  void fullTurn();

  // While one lives, the user's keys and clicks wait; everything else goes on.
  class HeldInput {
   public:
    explicit HeldInput(EventYield& yield) : yield_(yield) { ++yield_.held_; }
    ~HeldInput() { --yield_.held_; }
    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

   private:
    EventYield& yield_;
  };
  bool holdsInput() const { return held_ > 0; }

 protected:
  // Runs the pending events; tests put an event of their own in here.
  virtual void runEvents();

 private:
  void lookAtClock();

  std::chrono::milliseconds slice_;
  int linesUntilLook_ = 0;
  int held_ = 0;
  std::chrono::steady_clock::time_point lastTurn_;
};

}  // namespace korvane
