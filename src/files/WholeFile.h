// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "files/DiskFile.h"

namespace korvane {

// A file that is written piece by piece under a name of its own beside its place ("Data.DBF.korvane-<16
// hexadecimal digits>.part") and takes its place whole, or not at all. The first failure stays, and nothing
// is written after it. Reasons are the system's, in its own encoding; an empty text is success.
class WholeFile {
 public:
  struct Options {
    DiskFile::Access access = DiskFile::Access::usual;  // of a file that replaces none
    bool sync = true;  // without it the file survives the end of the program, but not that of the machine
  };

  // Begins the file. `target` is a native path; symbolic links are followed. The folder must exist; what
  // stands at the place stays there. What killed writers of the same file left beside it is removed.
  WholeFile(const std::filesystem::path& target, Options options);
  explicit WholeFile(const std::filesystem::path& target) : WholeFile(target, Options()) {}
  // Without replace() or create() nothing is left.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  void write(std::string_view bytes);
  // Writes over bytes that have been written before.
  void rewrite(std::uint64_t offset, std::string_view bytes);
  std::uint64_t size() const { return size_; }

  // Why the file cannot take its place, as far as is known by now.
  std::string reason() const;
  // True when it can be written only in the place of the old file: the folder's entries are not to be
  // changed, or the old file's owner, rights or attributes cannot be given to a new one.
  bool onlyInPlace() const { return onlyInPlace_; }

  // Puts all of it on the disk, beside its place, with the owner, group, rights, access list and extended
  // attributes of the file that it will replace. The next two do this first, unless it is done.
  [[nodiscard]] std::string finish();
  // Takes the place of the file that is there, if any. Another hard link keeps the old file.
  [[nodiscard]] std::string replace();
  // Takes a place where nothing is; whatever appears there meanwhile is not touched.
  [[nodiscard]] std::string create();

 private:
  void begin();
  void flush();
  void run(std::error_code error);
  void closeEarly();
  std::string place(std::error_code error);

  std::filesystem::path target_;
  Options options_;
  std::filesystem::path part_;  // empty: nothing is beside the place
  DiskFile file_;
  std::string buffer_;
  std::uint64_t size_ = 0;
  std::error_code error_;
  bool finished_ = false;
  bool onlyInPlace_ = false;
  bool attributesLost_ = false;
};

// The file that a native path leads to after following symbolic links. The last link of a chain may lead to a
// file that is yet to be made.
std::filesystem::path BehindLinks(std::filesystem::path path);

// Whether a file has a name under which a WholeFile is written: it may be cut off anywhere.
bool IsPart(const std::filesystem::path& name);

// Removes from a folder what killed writers left beside the file `name`, or beside any file where no name is
// given. What a running program still writes is not touched.
void RemoveLeftovers(const std::filesystem::path& folder, const std::filesystem::path& name = {});

}  // namespace korvane
