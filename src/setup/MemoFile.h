// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "setup/RandomFile.h"

namespace korvane {

enum class MemoKind {
  version3,  // a text that ends at two 1A bytes
  version4,  // FF FF 08 00, the length with these eight bytes, the text
};

// What stands before and behind a text of the size in the memo file, so that it fills whole blocks.
std::string MemoHead(MemoKind kind, std::uint64_t textSize);
std::string MemoTail(MemoKind kind, std::uint64_t textSize, std::uint64_t blockSize);

// A memo file with `firstFree` as the number of its first free block, and nothing in it.
std::string MemoFileHeader(std::uint64_t firstFree, std::uint64_t blockSize);

// The texts of a table's memo fields, each found by the number of its first block.
class MemoFile {
 public:
  // Opens the memo file at the program's path. A missing or empty one is a DatabaseError.
  MemoFile(std::string path, MemoKind kind);

  // The text at the block, with no more memory taken than the file has bytes. A number outside the file, or
  // bytes that are no memo, are a DatabaseError.
  std::string read(std::uint64_t block);
  // The same text in pieces; what is found wrong behind the first of them is still a DatabaseError.
  void read(std::uint64_t block, const TakePiece& take);

  struct Grown {
    std::string bytes;    // the whole file with the text at its end
    std::uint64_t block;  // where the text begins
  };
  // A copy of the file with one more text. DatabaseError for a text that this kind of memo cannot hold.
  Grown withText(std::string_view text);

  const std::string& path() const { return path_; }
  // Lets go of the file, so that another can take its place; reopen() then reads that one.
  void close() { file_.close(); }
  void reopen();

 private:
  struct Place {  // of a text in the file
    std::uint64_t offset;
    std::uint64_t length;
  };
  Place placeOf(std::uint64_t block);
  Place placeOfVersion3(std::uint64_t offset);
  Place placeOfVersion4(std::uint64_t offset);

  std::string path_;
  MemoKind kind_;
  RandomFile file_;
  std::uint64_t blockSize_ = 0;
};

}  // namespace korvane
