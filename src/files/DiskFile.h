// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace korvane {

// A file (native path) open for writing, with what the standard library's streams cannot do or do not tell.
// Every operation gives the system's error, or none.
class DiskFile {
 public:
  enum class Access { usual, userOnly };  // of a new file: as the system sees fit, or for its user alone

  DiskFile() = default;
  ~DiskFile() { static_cast<void>(close()); }
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;

  // A new file; an error when anything has the name already.
  std::error_code create(const std::filesystem::path& path, Access access);
  // A file that is there; its bytes stay until they are written over. No link is followed.
  std::error_code open(const std::filesystem::path& path);
  // The same, made where there is none.
  std::error_code openOrCreate(const std::filesystem::path& path);

  // All of the bytes, behind those of the last write or at the place of a seek.
  std::error_code write(std::string_view bytes);
  std::error_code seek(std::uint64_t offset);
  // Finds space on the disk for so many bytes before any is written, where the file system can.
  std::error_code reserve(std::uint64_t size);
  std::error_code truncate(std::uint64_t size);
  // Waits until the bytes are on the disk.
  std::error_code sync();
  std::error_code close();

  // Holds the file until it is closed or the program ends, however it ends. The error is
  // resource_unavailable_try_again when somebody else holds it, another one where the file system knows no
  // locks.
  std::error_code lock();
  // No error when the path still names this file, no_such_file_or_directory when it does not, another one
  // when that cannot be told.
  std::error_code whyNotAt(const std::filesystem::path& path) const;

 private:
#ifdef _WIN32
  using Handle = std::intptr_t;
#else
  using Handle = int;
#endif

  std::error_code openAs(const std::filesystem::path& path, int flags, Access access);

  Handle handle_ = -1;
};

// Waits until a file's bytes, or a folder's entries, are on the disk.
std::error_code SyncToDisk(const std::filesystem::path& path);

// Why this user may not write the file, if so.
std::error_code WhyNotWritable(const std::filesystem::path& path);

// Gives a file the name of another one, which goes, or a name that is free. Windows then keeps the access
// list, the streams and the attributes of the old file, and is asked for half a second when somebody holds
// it.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives a file a second name (a hard link). An error of function_not_supported where such a name could not
// be taken away again whenever it has to.
std::error_code GiveSecondName(const std::filesystem::path& file, const std::filesystem::path& name);

// Gives a file another name in one step that fails where anything has that name already. An error of
// function_not_supported where the file system has no such step.
std::error_code RenameUnlessThere(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives a file the owner, group, rights, access list and extended attributes of another one. An error when
// not all of them could be taken over.
std::error_code CopyAttributes(const std::filesystem::path& from, const std::filesystem::path& to);

// Whether an error says that another program has the file open and shares it with nobody, as on Windows.
bool IsHeldElsewhere(const std::error_code& error);

// The error in words; of a file that another program holds, which one, as far as the system tells.
std::string ReasonOf(const std::error_code& error, const std::filesystem::path& file);

// Whether the system refuses the file (which need not be there), or one beside it, to this user, and would
// let the program write it if it was started as administrator. Always false where no program can be.
bool NeedsAdministrator(const std::filesystem::path& file);

// Where a path really leads: absolute, without links. An error when nothing is there.
std::filesystem::path RealPath(const std::filesystem::path& path, std::error_code& error);

}  // namespace korvane
