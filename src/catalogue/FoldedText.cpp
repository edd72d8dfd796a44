// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FoldedText.h"

#include <algorithm>
#include <cstring>

namespace korvane {

bool EqualFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return x == y || FoldedByte(x) == FoldedByte(y);
         });
}

bool LessFolded(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(FoldedByte(x)) < static_cast<unsigned char>(FoldedByte(y));
  });
}

// Eight bytes at a time. Setting the bit that tells small letters from capital ones makes some other bytes
// equal too, which a hash may do.
std::uint64_t FoldedHash(std::string_view text) {
  constexpr std::uint64_t kSmall = 0x2020202020202020U;
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = text.size() * kFactor;
  while (!text.empty()) {
    std::uint64_t part = 0;
    const std::size_t size = std::min(text.size(), sizeof part);
    std::memcpy(&part, text.data(), size);
    hash = (hash ^ (part | kSmall)) * kFactor;
    hash ^= hash >> 32;
    text.remove_prefix(size);
  }
  return hash;
}

}  // namespace korvane
