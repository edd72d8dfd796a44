// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "stock/BinaryNumbers.h"

namespace korvane {

// Tells that a table and a memo file belong together: the same bytes, made from the table's records, lie in
// both, where other programs have nothing.
class PairSeal {
 public:
  static constexpr std::size_t kSize = 16;

  void add(std::string_view bytes) {
    for (const char c : bytes) hash_ = (hash_ ^ static_cast<unsigned char>(c)) * kPrime;
  }
  std::string bytes() const { return std::string(kMark) + LittleBytes(hash_, kSize - kMark.size()); }

  // The seal that these bytes are; nothing when they are none.
  static std::string Found(std::string_view bytes) {
    return bytes.size() == kSize && bytes.starts_with(kMark) ? std::string(bytes) : std::string();
  }

 private:
  static constexpr std::string_view kMark = "KorvPair";
  static constexpr std::uint64_t kPrime = 0x100000001b3;  // of the hash FNV-1a
  std::uint64_t hash_ = 0xcbf29ce484222325;
};

}  // namespace korvane
