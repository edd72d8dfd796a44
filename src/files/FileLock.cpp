// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/FileLock.h"

#include <thread>

namespace korvane {

namespace {

constexpr std::chrono::microseconds kPause(500);

}  // namespace

// A holder that goes takes the file along: who waited for that file then holds one that has no name any more.
void FileLock::tryOnce() {
  std::error_code error = file_.openOrCreate(path_);
  taken_ = IsHeldElsewhere(error);
  if (error) return;
  error = file_.lock();
  taken_ = error == std::errc::resource_unavailable_try_again;
  if (!error) {
    error = file_.whyNotAt(path_);
    taken_ = error == std::errc::no_such_file_or_directory;
  }
  held_ = !error;
  if (!held_) static_cast<void>(file_.close());
}

bool FileLock::take(const std::filesystem::path& file, std::chrono::milliseconds patience) {
  release();
  path_ = file;
  const auto end = std::chrono::steady_clock::now() + patience;
  tryOnce();
  while (taken_ && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kPause);
    tryOnce();
  }
  return held_;
}

void FileLock::release() {
  if (!held_) return;
  held_ = false;
#ifdef _WIN32
  static_cast<void>(file_.close());  // an open file cannot be removed
#endif
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
  static_cast<void>(file_.close());
}

}  // namespace korvane
