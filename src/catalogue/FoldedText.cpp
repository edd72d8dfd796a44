// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FoldedText.h"

#include <algorithm>
#include <cstring>

namespace korvane {

namespace {

constexpr std::uint64_t kSmallLetters = 0x2020202020202020U;
constexpr std::size_t kStep = sizeof(std::uint64_t);

template <typename Part>
std::uint64_t PartAt(std::string_view text, std::size_t at) {
  Part part = 0;
  std::memcpy(&part, text.data() + at, sizeof part);
  return part;
}

// All bytes of a text of fewer than eight.
std::uint64_t ShortPart(std::string_view text) {
  const std::size_t size = text.size();
  if (size >= 4) return PartAt<std::uint32_t>(text, 0) << 32 | PartAt<std::uint32_t>(text, size - 4);
  if (size >= 2) return PartAt<std::uint16_t>(text, 0) << 16 | PartAt<std::uint16_t>(text, size - 2);
  return size == 0 ? 0 : PartAt<std::uint8_t>(text, 0);
}

}  // namespace

bool EqualFolded(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  return a == b || std::equal(a.begin(), a.end(), b.begin(),
                              [](char x, char y) { return x == y || FoldedByte(x) == FoldedByte(y); });
}

bool LessFolded(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(FoldedByte(x)) < static_cast<unsigned char>(FoldedByte(y));
  });
}

// Eight bytes at a time. Setting the bit that tells small letters from capital ones makes some other bytes
// equal too, which a hash may do.
std::uint64_t FoldedHash(std::string_view text) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = text.size() * kFactor;
  const auto mix = [&hash](std::uint64_t part) {
    hash = (hash ^ (part | kSmallLetters)) * kFactor;
    hash ^= hash >> 32;
  };
  if (text.size() < kStep) {
    mix(ShortPart(text));
    return hash;
  }
  for (std::size_t at = 0; at + kStep < text.size(); at += kStep) mix(PartAt<std::uint64_t>(text, at));
  mix(PartAt<std::uint64_t>(text, text.size() - kStep));
  return hash;
}

}  // namespace korvane
