// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <fstream>
#include <memory>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// A file that is read from its start to its end in pieces that stay in the processor's cache, so that no
// memory has to be found for all of it. The buffer is kept from one file to the next, the contents are not.
class FilePieces {
 public:
  static constexpr std::size_t kPiece = 256 * 1024;  // a longer one only where a line does not fit

  // Opens the file at the program's path (see NativePath.h). False when it names no ordinary file or cannot
  // be opened.
  bool open(const ProgramPath& path);

  // Returns the last `unused` bytes of the previous piece followed by the next bytes of the file. Valid until
  // the next call. A read error ends the file.
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
