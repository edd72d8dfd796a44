// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korvane {

// What is done to one call of a program, or to all from one on: a rule of FaultyCalls.cpp.
struct Fault {
  std::string kind;
  long from = 1;  // 1 is the first call of the kind
  std::string how;
  int error = 0;
};
std::string TextOf(const Fault& fault);

// A program under faults. It sees faults only below the folder (an absolute path without links).
struct FaultRun {
  std::vector<std::string> command;
  std::filesystem::path below;
  std::vector<Fault> faults = {};
  long freeBytes = -1;               // how many can be written; -1: any number
  std::filesystem::path trace = {};  // where to note each call
};

struct RunResult {
  bool killed = false;
  int exitCode = -1;
  std::string text{};     // what it wrote to its output and its errors
  bool diskGone = false;  // nothing worked from some call on, undoing included
  bool passing = false;   // one call failed, and all later ones worked
};
RunResult RunWithFaults(const FaultRun& run);

// The kinds of the calls that the program makes below the folder when nothing fails, one by one.
std::vector<std::string> CallsOf(FaultRun run);

}  // namespace korvane
