// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace korvane {

// What the program promises of a job; 0 where nothing is promised. Times in milliseconds.
struct Promise {
  double ratio = 0;     // at most so many times the bare pass ...
  double plus = 0;      // ... and so much more
  double time = 0;      // at most, on a folder of the original's size
  double gap = 0;       // the longest time without the event loop, on such a folder
  double memory = 0;    // peak of the process on such a folder, in MB
  bool growth = false;  // the time grows no faster than the data
};

// What a process tells of itself when it has ended.
struct Told {
  double gap = -1;    // the longest time without the event loop; negative: there is none
  double memory = 0;  // peak, in MB
};

// One thing that the program does for its user, and how it is measured.
struct Job {
  enum class Size { ofTheFolder, fixed };  // fixed: the same for every folder, so measured once

  std::string name;
  Promise promise;
  std::function<void()> run;
  std::function<void()> bare;       // the least that a machine must do with the same bytes
  std::function<void()> prepare{};  // before every run, not measured
  int steps = 1;                    // in one run; what is told is for one of them
  std::function<Told()> told{};     // of a run in a process of its own
  Size size = Size::ofTheFolder;
};

// What was measured: medians over the runs. Times in milliseconds.
struct Row {
  std::string name;
  int factor = 1;
  double time = 0;
  double bare = 0;
  double gap = 0;     // the longest time without the event loop; negative: there was no event loop
  double memory = 0;  // peak, in MB
  Promise promise{};
};

using Jobs = std::vector<Job>;

}  // namespace korvane
