// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/RandomFile.h"

#include <algorithm>

#include "files/OrdinaryFile.h"

namespace korvane {

namespace {

constexpr std::uint64_t kPiece = 256 * 1024;

}  // namespace

bool RandomFile::open(const ProgramPath& path) {
  size_ = 0;
  if (!OpenOrdinaryFile(ProgramPath(path), file_) || !file_.seekg(0, std::ios::end)) return false;
  size_ = static_cast<std::uint64_t>(file_.tellg());
  return true;
}

std::string RandomFile::read(std::uint64_t offset, std::uint64_t length) {
  if (offset >= size_) return {};
  std::string bytes(static_cast<std::size_t>(std::min(length, size_ - offset)), '\0');
  file_.clear();
  file_.seekg(static_cast<std::streamoff>(offset));
  file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file_.gcount()));
  return bytes;
}

std::uint64_t RandomFile::read(std::uint64_t offset, std::uint64_t length, const TakePiece& take) {
  std::uint64_t done = 0;
  while (done < length) {
    const std::string piece = read(offset + done, std::min(kPiece, length - done));
    if (piece.empty()) break;
    take(piece);
    done += piece.size();
  }
  return done;
}

}  // namespace korvane
