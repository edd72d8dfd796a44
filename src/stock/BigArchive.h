// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "stock/RandomFile.h"

namespace korvane {

// Not an archive, or a damaged one. what() is a sentence for the user.
class ArchiveError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The letters with which an archive begins.
constexpr std::string_view kBigArchiveMark = "BIGF";

// One of the game's own archives (".big"): these letters, the archive's size (little-endian), the number
// of files and the header's size (big-endian), and for each file its place and size (big-endian) and its path
// with backslashes, ended by a zero byte. All numbers have 32 bits.
class BigArchive {
 public:
  struct Entry {
    std::string path;
    std::uint32_t offset;
    std::uint32_t size;
  };

  // Reads the list of files of the archive at the program's path. ArchiveError when the file is no archive or
  // its numbers cannot be true.
  explicit BigArchive(const std::string& path);

  const std::vector<Entry>& entries() const { return entries_; }
  // The first entry of the path, whatever its letter case and its kind of separator; null where there is
  // none. Valid as long as the archive is.
  const Entry* find(std::string_view path) const;
  // The bytes of one of the archive's files in pieces. ArchiveError when they cannot all be read; some may
  // have come before.
  void read(const Entry& entry, const TakePiece& take);

 private:
  std::uint32_t readHeader();
  std::uint64_t readEntry(std::uint64_t at);
  [[noreturn]] void fail(const std::string& why) const;

  std::string path_;
  RandomFile file_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> places_;  // in entries_, by the path as it is compared
};

}  // namespace korvane
