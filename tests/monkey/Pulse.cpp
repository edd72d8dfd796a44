// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/Pulse.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // not every compiler brings its header
#elif defined(__GLIBC__)
#include <malloc.h>
#endif
#ifdef __GLIBC__
#include <array>
#include <execinfo.h>
#include <pthread.h>
#include <unistd.h>
#endif

namespace korvane {

namespace {

constexpr auto kHanging = std::chrono::seconds(120);
constexpr auto kLookInterval = std::chrono::milliseconds(200);
constexpr auto kHeld = std::chrono::seconds(5);

using Thread = std::thread::native_handle_type;

#ifdef __GLIBC__

Thread ThisThread() {
  return pthread_self();
}

void PrintTrace(int signal) {
  std::array<void*, 64> calls{};
  backtrace_symbols_fd(calls.data(), backtrace(calls.data(), calls.size()), STDERR_FILENO);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

// Ends the program with a trace of what the thread is doing.
void EndAt(Thread thread) {
  std::signal(SIGABRT, PrintTrace);
  pthread_kill(thread, SIGABRT);
}

#else

Thread ThisThread() {
  return {};
}

void EndAt(Thread) {
  std::abort();
}

#endif

}  // namespace

Pulse::Pulse() : last_(Clock::now().time_since_epoch().count()), watched_(ThisThread()) {
  watcher_ = std::thread([this] { watch(); });
}

Pulse::~Pulse() {
  done_ = true;
  watcher_.join();
}

void Pulse::beat(const char* doing) {
  const auto now = Clock::now().time_since_epoch();
  const Clock::duration silence = now - Clock::duration(last_.exchange(now.count()));
  if (silence > longest_) {
    longest_ = silence;
    longestDuring_ = doing_;
  }
  const std::clock_t work = std::clock();
  longestWork_ = std::max(longestWork_, work - lastWork_);
  lastWork_ = work;
  doing_ = doing;
}

void Pulse::reset() {
  longest_ = {};
  longestWork_ = 0;
  lastWork_ = std::clock();
  last_ = Clock::now().time_since_epoch().count();
}

std::chrono::milliseconds Pulse::longest() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(longest_);
}

std::chrono::milliseconds Pulse::longestWork() const {
  return std::chrono::milliseconds(longestWork_ * 1000 / CLOCKS_PER_SEC);
}

// While the whole process is held, nobody looks either: that time does not count.
void Pulse::watch() {
  auto looked = Clock::now();
  while (!done_) {
    std::this_thread::sleep_for(kLookInterval);
    const Clock::duration gone = Clock::now() - std::exchange(looked, Clock::now());
    if (gone > kHeld) last_ += gone.count();
    if (Clock::now().time_since_epoch() - Clock::duration(last_) < kHanging) continue;
    std::fprintf(stderr, "No answer for %d seconds during: %s\n", static_cast<int>(kHanging.count()),
                 doing_.load());
    return EndAt(watched_);
  }
}

std::size_t HeapInUse() {
#if defined(__SANITIZE_ADDRESS__)
  return __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
#else
  return 0;
#endif
}

std::size_t ResidentBytes() {
  constexpr std::size_t kPage = 4096;
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm").ignore(64, ' ') >> pages;
  return pages * kPage;
}

}  // namespace korvane
