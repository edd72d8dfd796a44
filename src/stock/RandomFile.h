// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// Takes the next bytes of a text that is too long to be held at once.
using TakePiece = std::function<void(std::string_view)>;

// A file opened for reading at any offset.
class RandomFile {
 public:
  // Opens the ordinary file at the program's path. False when there is none, or it may not be read.
  bool open(const ProgramPath& path);
  void close() { file_.close(); }

  // The file's length when it was opened.
  std::uint64_t size() const { return size_; }

  // The bytes at the offset: fewer than asked for where the file ends or cannot be read. Never takes more
  // memory than the file has bytes.
  std::string read(std::uint64_t offset, std::uint64_t length);
  // The same bytes in pieces that stay in the processor's cache. Gives how many there were.
  std::uint64_t read(std::uint64_t offset, std::uint64_t length, const TakePiece& take);

 private:
  std::ifstream file_;
  std::uint64_t size_ = 0;
};

}  // namespace korvane
