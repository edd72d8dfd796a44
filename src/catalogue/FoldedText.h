// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace korvane {

// Texts whose letter case does not matter. Only the letters A to Z have a case; every other byte stands for
// itself.

constexpr char FoldedByte(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

// A part of a text as a number, however its bytes are ordered in it.
template <typename Part>
std::uint64_t PartAt(std::string_view text, std::size_t at) {
  Part part = 0;
  std::memcpy(&part, text.data() + at, sizeof part);
  return part;
}
inline constexpr std::size_t kFoldedStep = sizeof(std::uint64_t);

// All bytes of a text that is shorter than a step.
inline std::uint64_t ShortPart(std::string_view text) {
  const std::size_t size = text.size();
  if (size >= 4) return PartAt<std::uint32_t>(text, 0) << 32U | PartAt<std::uint32_t>(text, size - 4);
  if (size >= 2) return PartAt<std::uint16_t>(text, 0) << 16U | PartAt<std::uint16_t>(text, size - 2);
  return size == 0 ? 0 : PartAt<std::uint8_t>(text, 0);
}

// For texts of one size. Most are shorter than what a call of memcmp is worth.
inline bool SameBytes(std::string_view a, std::string_view b) {
  if (a.size() < kFoldedStep) return ShortPart(a) == ShortPart(b);
  for (std::size_t at = 0; at + kFoldedStep < a.size(); at += kFoldedStep) {
    if (PartAt<std::uint64_t>(a, at) != PartAt<std::uint64_t>(b, at)) return false;
  }
  return PartAt<std::uint64_t>(a, a.size() - kFoldedStep) == PartAt<std::uint64_t>(b, b.size() - kFoldedStep);
}

bool EqualFoldedLetters(std::string_view a, std::string_view b);
// Mostly what is equal is spelt alike.
inline bool EqualFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() && (SameBytes(a, b) || EqualFoldedLetters(a, b));
}
// Before in the order of the folded bytes.
bool LessFolded(std::string_view a, std::string_view b);
// The same for texts that are equal but for letter case. Differs from one system to another: not to be
// stored.
std::uint64_t FoldedHash(std::string_view text);

}  // namespace korvane
