// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FoldedText.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::uint64_t kSmallLetters = 0x2020202020202020U;
}  // namespace

bool EqualFoldedLetters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](char x, char y) { return FoldedByte(x) == FoldedByte(y); });
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
  if (text.size() < kFoldedStep) {
    mix(ShortPart(text));
    return hash;
  }
  for (std::size_t at = 0; at + kFoldedStep < text.size(); at += kFoldedStep)
    mix(PartAt<std::uint64_t>(text, at));
  mix(PartAt<std::uint64_t>(text, text.size() - kFoldedStep));
  return hash;
}

}  // namespace korvane
