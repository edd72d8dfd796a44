// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "files/WholeFile.h"
#include "stock/PairSeal.h"
#include "stock/WriteTextFile.h"

namespace korvane {

// Packs files into a new stock database: a dBASE IV table "<base>.DBF" with the fields PATH and TEXT, and its
// memo file "<base>.DBT" with blocks of 512 bytes. No text need be in memory as a whole. The same files
// always give the same bytes. Both files take their places when all is written; without commit() nothing
// changes on the disk. Failures are exceptions derived from std::runtime_error.
class StockTable {
 public:
  // The native path without an ending. The folder must exist.
  explicit StockTable(const std::filesystem::path& base);

  // One more record. The path below the game folder, with backslashes, has at most 254 characters, all ASCII.
  void add(std::string_view path, std::string_view text);
  // The same with a text of `size` bytes that `give` hands out in pieces; std::runtime_error when they are
  // not so many.
  void add(std::string_view path, std::uint64_t size, const GiveText& give);
  void commit();

 private:
  void addRecord(std::string_view path, std::string_view block);
  void addMemo(std::uint64_t size, const GiveText& give);
  void place();

  WholeFile table_;
  WholeFile memos_;
  std::filesystem::path memoPath_;
  std::uint32_t records_ = 0;
  PairSeal seal_;
};

}  // namespace korvane
