// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// A whole file in one buffer. The buffer is kept from one read to the next, the contents are not: every read
// shows the file as it is on the disk now.
class FileBytes {
 public:
  // Reads the file at the program's path (see NativePath.h). Long reads call `yield` from time to time.
  // False, and bytes() is empty, when the path names no ordinary file or not all of it can be read.
  bool read(const ProgramPath& path, const std::function<void()>& yield);
  // The same at a native path.
  bool readNative(const std::filesystem::path& path, const std::function<void()>& yield = {});

  std::string_view bytes() const { return {buffer_.get(), size_}; }

 private:
  void reserve(std::size_t capacity);
  bool readAll(const std::filesystem::path& path, const std::function<void()>& yield);

  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

}  // namespace korvane
