// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "stock/RandomFile.h"

namespace korvane {

enum class MemoKind {
  version3,  // a text that ends at two 1A bytes
  version4,  // FF FF 08 00, the length with these eight bytes, the text
};

// The longest text of a memo: the length of version IV has 32 bits and counts the eight bytes before it.
constexpr std::uint64_t kMaxMemo = 0xffffffffU - 8;

// The bytes before and after a text of this size in the memo file, so that it fills whole blocks.
std::string MemoHead(MemoKind kind, std::uint64_t textSize);
std::string MemoTail(MemoKind kind, std::uint64_t textSize, std::uint64_t blockSize);

// A memo file with `firstFree` as the number of its first free block, and nothing in it. `seal`: of the pair
// (see PairSeal.h).
std::string MemoFileHeader(std::uint64_t firstFree, std::uint64_t blockSize, std::string_view seal = {});

// The texts of a table's memo fields, each found by the number of its first block.
class MemoFile {
 public:
  // Opens the memo file at the program's path. A missing or empty one is a DatabaseError.
  MemoFile(const std::string& path, MemoKind kind);

  // The text at the block. Never allocates more than the file's size. A number outside the file, or bytes
  // that are no memo, are a DatabaseError.
  std::string read(std::uint64_t block);
  // The same text in pieces; what is found wrong behind the first of them is still a DatabaseError.
  void read(std::uint64_t block, const TakePiece& take);

  // The seal of the pair (see PairSeal.h); empty where there is none.
  const std::string& seal() const { return seal_; }

  struct Grown {
    std::string bytes;    // the whole file with the text at its end
    std::uint64_t block;  // where the text begins
  };
  // A copy of the file with one more text. DatabaseError for a text that this kind of memo cannot hold.
  Grown withText(std::string_view text);

 private:
  struct Place {  // of a text in the file
    std::uint64_t offset;
    std::uint64_t length;
  };
  Place placeOf(std::uint64_t block);
  Place placeOfVersion3(std::uint64_t offset);
  Place placeOfVersion4(std::uint64_t offset);

  MemoKind kind_;
  RandomFile file_;
  std::uint64_t blockSize_ = 0;
  std::string seal_;
};

}  // namespace korvane
