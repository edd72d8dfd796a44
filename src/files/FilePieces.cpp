// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/FilePieces.h"

#include <cstring>
#include <new>

#include "files/OrdinaryFile.h"

namespace korvane {

bool FilePieces::open(const ProgramPath& path) {
  size_ = 0;
  return OpenOrdinaryFile(path, file_);
}

// A piece that is used only in part moves to the front; one that is not used at all needs a larger buffer.
void FilePieces::makeRoom(std::size_t unused) {
  const char* const kept = buffer_.get() + size_ - unused;
  if (unused < capacity_) {
    std::memmove(buffer_.get(), kept, unused);
    return;
  }
  const std::size_t larger = capacity_ == 0 ? kPiece : capacity_ * 2;
  auto buffer = std::make_unique_for_overwrite<char[]>(larger);
  if (unused > 0) std::memcpy(buffer.get(), kept, unused);
  buffer_ = std::move(buffer);
  capacity_ = larger;
}

std::string_view FilePieces::next(std::size_t unused) {
  try {
    makeRoom(unused);
  } catch (const std::bad_alloc&) {  // the end, as far as this machine can tell
    file_.setstate(std::ios::failbit);
    return {buffer_.get() + size_ - unused, unused};
  }
  file_.read(buffer_.get() + unused, static_cast<std::streamsize>(capacity_ - unused));
  size_ = unused + static_cast<std::size_t>(file_.gcount());
  return {buffer_.get(), size_};
}

}  // namespace korvane
