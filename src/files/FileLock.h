// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>
#include <system_error>

#include "files/DiskFile.h"

namespace korvane {

// A file (native path) that copies of the program hold one at a time. The system lets it go when its holder
// ends, however that ends, so that no lock outlives its program. The file is gone when nobody holds it,
// except after a holder that was killed.
class FileLock {
 public:
  FileLock() = default;
  ~FileLock() { release(); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Waits for it that long at most. False when somebody else has it or the file cannot be made or held.
  bool take(const std::filesystem::path& file, std::chrono::milliseconds patience = {});
  bool isHeld() const { return held_; }
  // Whether the last take() came to nothing because somebody else has it.
  bool isTaken() const { return taken_; }
  void release();

 private:
  void tryOnce();

  std::filesystem::path path_;
  DiskFile file_;
  bool held_ = false;
  bool taken_ = false;
};

}  // namespace korvane
