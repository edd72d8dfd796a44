// SPDX-License-Identifier: GPL-3.0-or-later
#define WIN32_LEAN_AND_MEAN
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <utility>
#include <windows.h>

#include "files/DiskFile.h"
#include "files/StillFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;
constexpr int kToWrite = _O_WRONLY | _O_BINARY | _O_NOINHERIT;
constexpr int kWriteAccess = 2;

std::error_code ErrorUnless(bool done) {
  return done ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace

// Others may read, but neither write nor remove the file meanwhile: it is its own lock.
std::error_code DiskFile::openAs(const fs::path& path, int flags, Access) {
  static_cast<void>(close());
  return ErrorUnless(::_wsopen_s(&handle_, path.c_str(), flags, _SH_DENYWR, _S_IREAD | _S_IWRITE) == 0);
}

std::error_code DiskFile::create(const fs::path& path, Access access) {
  return openAs(path, kToWrite | _O_CREAT | _O_EXCL, access);
}

std::error_code DiskFile::open(const fs::path& path) {
  return openAs(path, kToWrite, Access::userOnly);
}

std::error_code DiskFile::openOrCreate(const fs::path& path) {
  return openAs(path, kToWrite | _O_CREAT, Access::userOnly);
}

std::error_code DiskFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto size = static_cast<unsigned>(std::min(bytes.size(), kMostAtOnce));
    const int taken = ::_write(handle_, bytes.data(), size);
    if (taken < 0) return ErrorUnless(false);
    if (taken == 0) return std::make_error_code(std::errc::no_space_on_device);
    bytes.remove_prefix(static_cast<std::size_t>(taken));
  }
  return {};
}

std::error_code DiskFile::seek(std::uint64_t offset) {
  return ErrorUnless(::_lseeki64(handle_, static_cast<__int64>(offset), SEEK_SET) >= 0);
}

std::error_code DiskFile::reserve(std::uint64_t) {
  return {};
}

std::error_code DiskFile::truncate(std::uint64_t size) {
  return ErrorUnless(::_chsize_s(handle_, static_cast<__int64>(size)) == 0);
}

std::error_code DiskFile::sync() {
  return ErrorUnless(::_commit(handle_) == 0);
}

std::error_code DiskFile::close() {
  const int handle = std::exchange(handle_, -1);
  return ErrorUnless(handle < 0 || ::_close(handle) == 0);
}

std::error_code DiskFile::lock() {
  return ErrorUnless(handle_ >= 0);
}

std::error_code DiskFile::whyNotAt(const fs::path&) const {
  return handle_ >= 0 ? std::error_code() : std::make_error_code(std::errc::no_such_file_or_directory);
}

std::optional<FileLook> LookAt(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  const std::uint64_t size = fs::file_size(path, error);
  if (error) return std::nullopt;
  const auto written = fs::last_write_time(path, error).time_since_epoch();
  if (error) return std::nullopt;
  return FileLook{size, std::chrono::duration_cast<std::chrono::nanoseconds>(written).count(), 0, 0};
}

std::error_code SyncToDisk(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return {};  // a folder needs no flush of its own
  DiskFile file;
  error = file.open(path);
  return error ? error : file.sync();
}

std::error_code WhyNotWritable(const fs::path& path) {
  return ErrorUnless(::_waccess(path.c_str(), kWriteAccess) == 0);
}

std::error_code RenameUnlessThere(const fs::path& from, const fs::path& to) {
  if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0) return {};
  return {static_cast<int>(::GetLastError()), std::system_category()};
}

std::error_code CopyAttributes(const fs::path&, const fs::path&) {
  return {};
}

}  // namespace korvane
