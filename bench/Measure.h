// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <vector>

#include "Job.h"

namespace korvane {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start);

// Of an empty list 0.
double Median(std::vector<double> values);

// The greatest memory that this process has held in RAM since the last ForgetPeak, or since it began, in MB.
double PeakMemory();
// Where the system cannot forget, the peak stays that of the whole process.
void ForgetPeak();

// Runs the job and its bare pass in turns, so that whatever else the machine does hits both.
Row Measure(const Job& job, int factor, int runs);

}  // namespace korvane
