// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// The second needs the first.
// clang-format off
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#include <restartmanager.h>
// clang-format on

#include "files/DiskFile.h"
#include "files/NativePath.h"
#include "files/StillFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

using OpenHandle = std::unique_ptr<void, decltype(&::CloseHandle)>;

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;
constexpr std::chrono::milliseconds kPatience(500);  // virus scanners and previews hold files that long
constexpr std::chrono::milliseconds kPause(20);
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kHeld[] = {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE,
                           ERROR_UNABLE_TO_REMOVE_REPLACED};
// What a file that takes another one's place gets from it; the system's replacing keeps the rest.
constexpr DWORD kTakenAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                   FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

constexpr const char* kNoRights =
    "Windows does not let you write there. Move the game to a folder of your own, or give your user the "
    "right to write into the game's folder, or start the program as administrator.";

std::error_code ErrorOf(DWORD code) {
  return {static_cast<int>(code), std::system_category()};
}

std::error_code ErrorUnless(BOOL done) {
  return done != 0 ? std::error_code() : ErrorOf(::GetLastError());
}

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr): it was one
}

// A file or folder, opened only to be asked about; null with the system's last error.
OpenHandle OpenToAsk(const fs::path& path, DWORD flags = 0) {
  const HANDLE handle = ::CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
  return {handle == INVALID_HANDLE_VALUE ? nullptr : handle, &::CloseHandle};
}

std::error_code WhyNotOpen(const fs::path& path, DWORD access, DWORD flags = FILE_FLAG_OPEN_REPARSE_POINT) {
  const HANDLE handle =
      ::CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return ErrorOf(::GetLastError());
  ::CloseHandle(handle);
  return {};
}

bool IsReadOnly(const fs::path& file) {
  const DWORD attributes = ::GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool IsAdministrator() {
  HANDLE opened = nullptr;
  if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return false;
  const OpenHandle token(opened, &::CloseHandle);
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  return ::GetTokenInformation(opened, TokenElevation, &elevation, sizeof elevation, &size) != 0 &&
         elevation.TokenIsElevated != 0;
}

// Tries for a moment when somebody else holds the file.
std::error_code WithPatience(const std::function<std::error_code()>& work) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  std::error_code error = work();
  while (IsHeldElsewhere(error) && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kPause);
    error = work();
  }
  return error;
}

std::uint64_t Joined(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32U | low;
}

// The programs that hold a file, as far as the system tells.
class Holders {
 public:
  explicit Holders(const fs::path& file) {
    wchar_t key[CCH_RM_SESSION_KEY + 1] = {};
    if (::RmStartSession(&session_, 0, key) != ERROR_SUCCESS) return;
    const wchar_t* name = file.c_str();
    if (::RmRegisterResources(session_, 1, &name, 0, nullptr, 0, nullptr) == ERROR_SUCCESS) read();
    ::RmEndSession(session_);
  }
  const std::string& names() const { return names_; }

 private:
  void read() {
    RM_PROCESS_INFO found[8];
    UINT needed = 0;
    UINT count = static_cast<UINT>(std::size(found));
    DWORD reasons = 0;
    if (::RmGetList(session_, &needed, &count, found, &reasons) != ERROR_SUCCESS) return;
    for (UINT i = 0; i < count; ++i)
      names_ += (names_.empty() ? "" : ", ") + Utf8FromPath(found[i].strAppName);
  }

  DWORD session_ = 0;
  std::string names_;
};

}  // namespace

// Others may read, but neither write nor remove the file meanwhile: it is its own lock.
std::error_code DiskFile::openAs(const fs::path& path, int disposition, Access) {
  static_cast<void>(close());
  const HANDLE handle =
      ::CreateFileW(path.c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                    static_cast<DWORD>(disposition), FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return ErrorOf(::GetLastError());
  handle_ = reinterpret_cast<std::intptr_t>(handle);
  return {};
}

std::error_code DiskFile::create(const fs::path& path, Access access) {
  return openAs(path, CREATE_NEW, access);
}

std::error_code DiskFile::open(const fs::path& path) {
  return openAs(path, OPEN_EXISTING, Access::userOnly);
}

std::error_code DiskFile::openOrCreate(const fs::path& path) {
  return openAs(path, OPEN_ALWAYS, Access::userOnly);
}

std::error_code DiskFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    DWORD taken = 0;
    if (::WriteFile(HandleOf(handle_), bytes.data(), size, &taken, nullptr) == 0) return ErrorUnless(FALSE);
    if (taken == 0) return std::make_error_code(std::errc::no_space_on_device);
    bytes.remove_prefix(taken);
  }
  return {};
}

std::error_code DiskFile::seek(std::uint64_t offset) {
  LARGE_INTEGER place;
  place.QuadPart = static_cast<LONGLONG>(offset);
  return ErrorUnless(::SetFilePointerEx(HandleOf(handle_), place, nullptr, FILE_BEGIN));
}

// Space is found by a larger file, which shrinks again to what it holds.
std::error_code DiskFile::reserve(std::uint64_t size) {
  LARGE_INTEGER present;
  if (::GetFileSizeEx(HandleOf(handle_), &present) == 0) return ErrorUnless(FALSE);
  if (static_cast<std::uint64_t>(present.QuadPart) >= size) return {};
  const std::error_code error = truncate(size);
  return error ? error : truncate(static_cast<std::uint64_t>(present.QuadPart));
}

std::error_code DiskFile::truncate(std::uint64_t size) {
  const std::error_code error = seek(size);
  return error ? error : ErrorUnless(::SetEndOfFile(HandleOf(handle_)));
}

std::error_code DiskFile::sync() {
  return ErrorUnless(::FlushFileBuffers(HandleOf(handle_)));
}

std::error_code DiskFile::close() {
  const HANDLE handle = HandleOf(std::exchange(handle_, -1));
  return handle == INVALID_HANDLE_VALUE ? std::error_code() : ErrorUnless(::CloseHandle(handle));
}

std::error_code DiskFile::lock() {
  return handle_ == -1 ? ErrorOf(ERROR_INVALID_HANDLE) : std::error_code();
}

std::error_code DiskFile::whyNotAt(const fs::path& path) const {
  const OpenHandle file = OpenToAsk(path, FILE_FLAG_OPEN_REPARSE_POINT);
  BY_HANDLE_FILE_INFORMATION here{};
  BY_HANDLE_FILE_INFORMATION there{};
  if (!file || ::GetFileInformationByHandle(HandleOf(handle_), &here) == 0 ||
      ::GetFileInformationByHandle(file.get(), &there) == 0) {
    return ErrorUnless(FALSE);
  }
  const bool same = here.dwVolumeSerialNumber == there.dwVolumeSerialNumber &&
                    here.nFileIndexHigh == there.nFileIndexHigh && here.nFileIndexLow == there.nFileIndexLow;
  return same ? std::error_code() : std::make_error_code(std::errc::no_such_file_or_directory);
}

std::optional<FileLook> LookAt(const fs::path& path) {
  const OpenHandle file = OpenToAsk(path);
  BY_HANDLE_FILE_INFORMATION found{};
  FILE_BASIC_INFO times{};
  if (!file || ::GetFileInformationByHandle(file.get(), &found) == 0) return std::nullopt;
  if ((found.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0) return std::nullopt;
  ::GetFileInformationByHandleEx(file.get(), FileBasicInfo, &times, sizeof times);
  const auto written = Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
  constexpr std::int64_t kNanoseconds = 100;  // of the system's unit; all of them wrap round alike
  return FileLook{Joined(found.nFileSizeHigh, found.nFileSizeLow),
                  static_cast<std::int64_t>(written * kNanoseconds), times.ChangeTime.QuadPart * kNanoseconds,
                  Joined(found.nFileIndexHigh, found.nFileIndexLow)};
}

std::error_code SyncToDisk(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return {};  // a folder needs no flush of its own
  DiskFile file;
  error = file.open(path);
  return error ? error : file.sync();
}

std::error_code WhyNotWritable(const fs::path& path) {
  return WithPatience([&path] { return WhyNotOpen(path, GENERIC_WRITE); });
}

// A replacing that fails can leave a file of the system's beside it: it is only begun where nobody is in the
// way.
std::error_code RenameOver(const fs::path& from, const fs::path& to) {
  return WithPatience([&] {
    const std::error_code error = WhyNotOpen(to, DELETE);
    if (error == std::errc::no_such_file_or_directory) return RenameUnlessThere(from, to);
    if (error) return error;
    return ErrorUnless(::ReplaceFileW(to.c_str(), from.c_str(), nullptr, 0, nullptr, nullptr));
  });
}

std::error_code RenameUnlessThere(const fs::path& from, const fs::path& to) {
  return ErrorUnless(::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH));
}

// While somebody holds a file, none of its names can be removed: a second one could stay for ever.
std::error_code GiveSecondName(const fs::path&, const fs::path&) {
  return std::make_error_code(std::errc::function_not_supported);
}

std::error_code CopyAttributes(const fs::path& from, const fs::path& to) {
  const DWORD attributes = ::GetFileAttributesW(from.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return ErrorUnless(FALSE);
  const DWORD taken = attributes & kTakenAttributes;
  return ErrorUnless(::SetFileAttributesW(to.c_str(), taken != 0 ? taken : FILE_ATTRIBUTE_NORMAL));
}

bool IsHeldElsewhere(const std::error_code& error) {
  return error.category() == std::system_category() &&
         std::find(std::begin(kHeld), std::end(kHeld), static_cast<DWORD>(error.value())) != std::end(kHeld);
}

std::string ReasonOf(const std::error_code& error, const fs::path& file) {
  if (error == ErrorOf(ERROR_ACCESS_DENIED)) {
    return IsReadOnly(file) ? "the file is read-only" : kNoRights;
  }
  if (!IsHeldElsewhere(error)) return error.message();
  const Holders holders(file);
  return "another program holds it open" + (holders.names().empty() ? "" : ": " + holders.names());
}

bool NeedsAdministrator(const fs::path& file) {
  if (IsAdministrator()) return false;
  std::error_code error;
  fs::path folder = file.parent_path();
  while (folder.has_relative_path() && !fs::exists(folder, error)) folder = folder.parent_path();
  const std::error_code denied = ErrorOf(ERROR_ACCESS_DENIED);
  return WhyNotOpen(folder, FILE_ADD_FILE, FILE_FLAG_BACKUP_SEMANTICS) == denied ||
         (WhyNotOpen(file, GENERIC_WRITE) == denied && !IsReadOnly(file));
}

// The standard library makes "\\server\share" a folder of the drive, and follows no junctions.
fs::path RealPath(const fs::path& path, std::error_code& error) {
  const OpenHandle file = OpenToAsk(path);
  std::wstring real(32768, L'\0');
  const DWORD length =
      file ? ::GetFinalPathNameByHandleW(file.get(), real.data(), static_cast<DWORD>(real.size()), 0) : 0;
  error = ErrorUnless(length > 0 && length < real.size() ? TRUE : FALSE);
  real.resize(error ? 0 : length);
  return real;
}

}  // namespace korvane
