// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/StillFile.h"

#include <chrono>
#include <thread>

namespace korvane {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPatience(1000);
constexpr std::chrono::milliseconds kPause(50);

// The file's time, which some systems keep in steps, is so near that a next write could leave it as it is.
bool IsJustWritten(const std::filesystem::path& path) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(path, error);
  const auto age = std::filesystem::file_time_type::clock::now() - time;
  return !error && age >= age.zero() && age < kPause;
}

}  // namespace

StillRead ReadStill(const std::filesystem::path& path, std::uint64_t limit, FileBytes& file, FileLook& look) {
  for (const auto end = Clock::now() + kPatience; Clock::now() < end; std::this_thread::sleep_for(kPause)) {
    const std::optional<FileLook> before = LookAt(path);
    if (!before) return StillRead::unreadable;
    if (before->size > limit) return StillRead::tooLarge;
    if (IsJustWritten(path)) continue;
    const bool read = file.readNative(path);
    const std::optional<FileLook> after = LookAt(path);
    if (after != before) continue;
    look = *before;
    return read ? StillRead::done : StillRead::unreadable;
  }
  return StillRead::changing;
}

}  // namespace korvane
