// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/WholeFile.h"

#include <cerrno>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace korvane {

namespace fs = std::filesystem;

namespace {

std::FILE* OpenForWriting(const fs::path& path) {
#ifdef _WIN32
  return _wfopen(path.c_str(), L"wb");
#else
  return std::fopen(path.c_str(), "wb");
#endif
}

bool SyncToDisk(std::FILE* file) {
#ifdef _WIN32
  return _commit(_fileno(file)) == 0;
#else
  return fsync(fileno(file)) == 0;
#endif
}

bool SeekTo(std::FILE* file, std::uint64_t offset) {
#ifdef _WIN32
  return _fseeki64(file, static_cast<__int64>(offset), SEEK_SET) == 0;
#else
  return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
#endif
}

bool Put(std::FILE* file, std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

}  // namespace

WholeFile::WholeFile(fs::path target) : target_(std::move(target)), part_(target_) {
  part_ += ".part";
  fs::remove(part_);  // left by a run that was cut off; and no link is followed
  file_.reset(OpenForWriting(part_));
  if (!file_) fail();
}

WholeFile::~WholeFile() {
  file_.reset();
  std::error_code ignored;
  if (!part_.empty()) fs::remove(part_, ignored);
}

void WholeFile::fail() const {
  throw fs::filesystem_error("cannot be written", target_, std::error_code(errno, std::generic_category()));
}

void WholeFile::write(std::string_view bytes) {
  if (!Put(file_.get(), bytes)) fail();
  size_ += bytes.size();
}

void WholeFile::rewrite(std::uint64_t offset, std::string_view bytes) {
  if (!SeekTo(file_.get(), offset) || !Put(file_.get(), bytes) || !SeekTo(file_.get(), size_)) fail();
}

void WholeFile::commit() {
  if (std::fflush(file_.get()) != 0) fail();
  if (fs::exists(target_) && !SyncToDisk(file_.get())) fail();
  if (std::fclose(file_.release()) != 0) fail();
  fs::rename(part_, target_);
  part_.clear();
}

}  // namespace korvane
