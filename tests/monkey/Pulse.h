// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <string>
#include <thread>

namespace korvane {

// Measures for how long the program gives no answer. One that gives none at all for a minute is ended with a
// trace of where it hangs.
class Pulse {
 public:
  using Clock = std::chrono::steady_clock;

  Pulse();
  ~Pulse();
  Pulse(const Pulse&) = delete;
  Pulse& operator=(const Pulse&) = delete;

  // The program is answering now. `doing`: what comes next.
  void beat(const char* doing);
  // Begins anew: what went on before is not to be counted.
  void reset();

  std::chrono::milliseconds longest() const;
  // The longest that the program itself worked without answering, whatever else the machine had to do.
  std::chrono::milliseconds longestWork() const;
  // What went on during the longest silence.
  const std::string& longestDuring() const { return longestDuring_; }

 private:
  void watch();

  std::atomic<Clock::rep> last_;
  std::atomic<const char*> doing_{"nothing"};
  Clock::duration longest_{};
  std::clock_t lastWork_ = std::clock();
  std::clock_t longestWork_ = 0;
  std::string longestDuring_;
  std::thread::native_handle_type watched_{};
  std::atomic<bool> done_ = false;
  std::thread watcher_;
};

// Bytes that the program has taken from the heap and not given back; 0 where that cannot be told.
std::size_t HeapInUse();
// Bytes of the process in memory; 0 where that cannot be told.
std::size_t ResidentBytes();

}  // namespace korvane
