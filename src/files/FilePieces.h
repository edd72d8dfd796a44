// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <fstream>
#include <memory>
#include <string_view>

namespace korvane {

// A file that is read from its start to its end in pieces that stay in the processor's cache, so that no
// memory has to be found for all of it. The buffer is kept from one file to the next, the contents are not.
class FilePieces {
 public:
  // Opens the file at the program's path (see NativePath.h). False when it names no ordinary file or cannot
  // be opened.
  bool open(std::string_view path);

  // The last `unused` bytes of the piece before, and the bytes of the file that follow them. Valid until the
  // next call. A fault in the middle of the file is its end.
  std::string_view next(std::size_t unused);

  // No bytes follow the last piece.
  bool atEnd() const { return !file_; }

  // Lets the file go; the last piece stays valid.
  void close() { file_.close(); }

 private:
  void makeRoom(std::size_t unused);

  std::ifstream file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

}  // namespace korvane
