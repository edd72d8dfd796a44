// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/RandomFile.h"

#include <algorithm>
#include <exception>
#include <filesystem>

#include "files/NativePath.h"

namespace korvane {

namespace {

constexpr std::uint64_t kPiece = 256 * 1024;

}  // namespace

bool RandomFile::open(std::string_view path) {
  file_ = std::ifstream();
  size_ = 0;
  try {
    const std::filesystem::path native = NativePath(path);
    if (!std::filesystem::is_regular_file(native)) return false;  // a pipe would block
    file_.rdbuf()->pubsetbuf(nullptr, 0);                         // pieces go straight where they are wanted
    file_.open(native, std::ios::binary);
    size_ = std::filesystem::file_size(native);
    return file_.is_open();
  } catch (const std::exception&) {  // no such path, no permission
    return false;
  }
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
