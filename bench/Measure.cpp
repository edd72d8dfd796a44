// SPDX-License-Identifier: GPL-3.0-or-later
#include "Measure.h"

#include <algorithm>
#include <fstream>
#include <string>

#include "GapMeter.h"

namespace korvane {

namespace {

struct Samples {
  std::vector<double> time;
  std::vector<double> bare;
  std::vector<double> gap;
  double memory = 0;
};

double TimeOf(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return MillisecondsSince(start);
}

void RunOnce(const Job& job, Samples& samples) {
  if (job.prepare) job.prepare();
  GapMeter meter;
  samples.time.push_back(TimeOf(job.run) / job.steps);
  const Told told = job.told ? job.told() : Told{meter.longest(), PeakMemory()};
  samples.gap.push_back(told.gap);
  samples.memory = std::max(samples.memory, told.memory);
  if (job.bare) samples.bare.push_back(TimeOf(job.bare));
}

}  // namespace

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << '5';
}

Row Measure(const Job& job, int factor, int runs) {
  Samples first;
  RunOnce(job, first);  // fills the caches of the machine and of Qt
  Samples samples;
  ForgetPeak();
  for (int i = 0; i < runs; ++i) RunOnce(job, samples);
  return {.name = job.name,
          .factor = factor,
          .time = Median(samples.time),
          .bare = Median(samples.bare),
          .gap = Median(samples.gap),
          .memory = samples.memory,
          .promise = job.promise};
}

}  // namespace korvane
