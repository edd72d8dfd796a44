// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/FileBytes.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <fstream>

#include "files/NativePath.h"
#include "files/OrdinaryFile.h"

namespace korvane {

namespace {

constexpr std::size_t kChunk = std::size_t{4} << 20;  // so that even a slow disk lets events run in between
constexpr std::size_t kSlack = 64;                    // spare, to see the end of the file without growing

}  // namespace

void FileBytes::reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  auto larger = std::make_unique_for_overwrite<char[]>(capacity);
  if (size_ > 0) std::memcpy(larger.get(), buffer_.get(), size_);
  buffer_ = std::move(larger);
  capacity_ = capacity;
}

bool FileBytes::read(const ProgramPath& path, const std::function<void()>& yield) {
  size_ = 0;
  try {
    return readNative(NativePath(path), yield);
  } catch (const std::exception&) {  // text that is no path at all
    return false;
  }
}

bool FileBytes::readNative(const std::filesystem::path& path, const std::function<void()>& yield) {
  size_ = 0;
  try {
    if (readAll(path, yield)) return true;
  } catch (const std::exception&) {  // no such path, no permission, no memory for it
  }
  size_ = 0;
  return false;
}

// A fault in the middle of a file ends the reading like its end does; only the length tells them apart.
bool FileBytes::readAll(const std::filesystem::path& path, const std::function<void()>& yield) {
  std::ifstream file;
  if (!OpenOrdinaryFile(path, file)) return false;
  reserve(static_cast<std::size_t>(std::filesystem::file_size(path)) + kSlack);
  while (file) {
    if (size_ == capacity_) reserve(capacity_ * 2);
    file.read(buffer_.get() + size_, static_cast<std::streamsize>(std::min(kChunk, capacity_ - size_)));
    size_ += static_cast<std::size_t>(file.gcount());
    if (file && yield) yield();
  }
  return !file.bad() && std::filesystem::file_size(path) == size_;
}

}  // namespace korvane
