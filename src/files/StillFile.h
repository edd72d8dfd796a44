// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "files/FileBytes.h"

namespace korvane {

// What a quick look at a file tells: as long as it is the same, so are the bytes. The other way round it need
// not be.
struct FileLook {
  std::uint64_t size = 0;
  std::int64_t written = 0;  // times in nanoseconds, of an epoch of the system's
  std::int64_t changed = 0;  // also by whoever set the other time back; 0 where the system does not know
  std::uint64_t number = 0;  // of the file on its disk; 0 where the system does not know

  bool operator==(const FileLook&) const = default;
};

// Of the ordinary file at a native path.
std::optional<FileLook> LookAt(const std::filesystem::path& path);

enum class StillRead { done, tooLarge, unreadable, changing };

// Reads an ordinary file (native path) of at most `limit` bytes that nobody writes meanwhile: a file that
// changes is read again for up to a second. `look` is of the bytes that were read.
StillRead ReadStill(const std::filesystem::path& path, std::uint64_t limit, FileBytes& file, FileLook& look);

}  // namespace korvane
