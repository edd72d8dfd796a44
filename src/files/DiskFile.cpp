// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/DiskFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "files/StillFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;  // more than some systems write in one go
constexpr int kToWrite = O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;  // a pipe would block

std::error_code ErrorUnless(bool done) {
  return done ? std::error_code() : std::error_code(errno, std::generic_category());
}

// Some file systems cannot be asked; a disk that is full or broken can.
bool Synced(int result) {
  return result == 0 || errno == EINVAL || errno == ENOSYS;
}

}  // namespace

std::error_code DiskFile::openAs(const fs::path& path, int flags, Access access) {
  static_cast<void>(close());
  handle_ = ::open(path.c_str(), flags, access == Access::usual ? 0666 : 0600);
  return ErrorUnless(handle_ >= 0);
}

std::error_code DiskFile::create(const fs::path& path, Access access) {
  return openAs(path, kToWrite | O_CREAT | O_EXCL, access);
}

std::error_code DiskFile::open(const fs::path& path) {
  return openAs(path, kToWrite, Access::userOnly);
}

std::error_code DiskFile::openOrCreate(const fs::path& path) {
  return openAs(path, kToWrite | O_CREAT, Access::userOnly);
}

std::error_code DiskFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t taken = ::write(handle_, bytes.data(), std::min(bytes.size(), kMostAtOnce));
    if (taken < 0 && errno == EINTR) continue;
    if (taken < 0) return ErrorUnless(false);
    if (taken == 0) return std::make_error_code(std::errc::no_space_on_device);
    bytes.remove_prefix(static_cast<std::size_t>(taken));
  }
  return {};
}

std::error_code DiskFile::seek(std::uint64_t offset) {
  return ErrorUnless(::lseek(handle_, static_cast<off_t>(offset), SEEK_SET) >= 0);
}

std::error_code DiskFile::reserve(std::uint64_t size) {
#ifdef __linux__
  if (size == 0 || ::fallocate(handle_, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0) return {};
  return ErrorUnless(errno == EOPNOTSUPP || errno == ENOSYS);
#else
  static_cast<void>(size);
  return {};
#endif
}

std::error_code DiskFile::truncate(std::uint64_t size) {
  return ErrorUnless(::ftruncate(handle_, static_cast<off_t>(size)) == 0);
}

std::error_code DiskFile::sync() {
  return ErrorUnless(Synced(::fdatasync(handle_)));
}

std::error_code DiskFile::close() {
  const int handle = std::exchange(handle_, -1);
  return ErrorUnless(handle < 0 || ::close(handle) == 0);
}

std::error_code DiskFile::lock() {
  return ErrorUnless(::flock(handle_, LOCK_EX | LOCK_NB) == 0);
}

std::error_code DiskFile::whyNotAt(const fs::path& path) const {
  struct stat here {};
  struct stat there {};
  if (::fstat(handle_, &here) != 0 || ::lstat(path.c_str(), &there) != 0) return ErrorUnless(false);
  const bool same = here.st_dev == there.st_dev && here.st_ino == there.st_ino;
  return same ? std::error_code() : std::make_error_code(std::errc::no_such_file_or_directory);
}

std::optional<FileLook> LookAt(const fs::path& path) {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
  const auto nanoseconds = [](const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + std::int64_t{time.tv_nsec};
  };
  return FileLook{static_cast<std::uint64_t>(found.st_size), nanoseconds(found.st_mtim),
                  nanoseconds(found.st_ctim), std::uint64_t{found.st_ino}};
}

std::error_code SyncToDisk(const fs::path& path) {
  const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) return ErrorUnless(false);
  struct stat found {};
  const bool folder = ::fstat(handle, &found) == 0 && S_ISDIR(found.st_mode);
  const std::error_code error = ErrorUnless(Synced(folder ? ::fsync(handle) : ::fdatasync(handle)));
  ::close(handle);
  return error;
}

std::error_code WhyNotWritable(const fs::path& path) {
  return ErrorUnless(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
}

std::error_code RenameOver(const fs::path& from, const fs::path& to) {
  return ErrorUnless(std::rename(from.c_str(), to.c_str()) == 0);
}

std::error_code GiveSecondName(const fs::path& file, const fs::path& name) {
  return ErrorUnless(::link(file.c_str(), name.c_str()) == 0);
}

std::error_code RenameUnlessThere(const fs::path& from, const fs::path& to) {
#ifdef RENAME_NOREPLACE
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS) return ErrorUnless(false);
#endif
  if (::link(from.c_str(), to.c_str()) == 0) {
    ::unlink(from.c_str());
    return {};
  }
  constexpr int kNoLinks[] = {EPERM, EOPNOTSUPP, ENOSYS, EINVAL};
  const bool none = std::find(std::begin(kNoLinks), std::end(kNoLinks), errno) != std::end(kNoLinks);
  return none ? std::make_error_code(std::errc::function_not_supported) : ErrorUnless(false);
}

bool IsHeldElsewhere(const std::error_code&) {
  return false;
}

std::string ReasonOf(const std::error_code& error, const fs::path&) {
  return error.message();
}

bool NeedsAdministrator(const fs::path&) {
  return false;
}

fs::path RealPath(const fs::path& path, std::error_code& error) {
  return fs::canonical(path, error);
}

}  // namespace korvane
