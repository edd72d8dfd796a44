// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "faults/FaultRun.h"
#include "support/GameFolder.h"

namespace korvane {

// Something that a program does to the disk, and how to see whether it went well.
struct SweptStep {
  std::string name;
  std::vector<std::string> command;  // "@" stands for the folder
  std::function<void(const GameFolder&)> prepare;
  // What is lost: neither the old nor the new is there whole. Nothing when all is well.
  std::function<std::string(const GameFolder&, const RunResult&)> loss;
  std::function<bool(const GameFolder&)> isDone;
  // What is lost unless the program said so before it ended.
  std::function<std::string(const GameFolder&)> lossUnlessTold = {};
  bool survivesPowerCut = true;
  std::vector<Fault> always = {};  // hold during the whole sweep
  // What a kill leaves behind is gone after the step is done once more; empty: that is not looked at.
  std::vector<std::string> again = {};
};

struct SweepCounts {
  int calls = 0;
  int runs = 0;
  int kills = 0;
  int refusals = 0;  // runs that said why it could not be done
  std::vector<std::string> losses;
  std::vector<std::string> falseSuccesses;
  std::vector<std::string> silentFailures;
  std::vector<std::string> leftovers;
};

// Lets every single call of the step fail in every way: once, from then on, alone of its kind from then on,
// half done, with the program dying before it or in the middle of it.
SweepCounts Sweep(const SweptStep& step);

// The same with a disk that fills up after each number of bytes from 0 to `most`, `apart` bytes apart.
SweepCounts SweepFreeSpace(const SweptStep& step, long most, long apart);

// Tells all that is wrong as failures of the running test, and the counts on the output.
void ExpectNothingLost(const SweptStep& step, const SweepCounts& counts);

}  // namespace korvane
