// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace korvane {

// Texts whose letter case does not matter. Only the letters A to Z have a case; every other byte stands for
// itself.

constexpr char FoldedByte(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool EqualFolded(std::string_view a, std::string_view b);
// Before in the order of the folded bytes.
bool LessFolded(std::string_view a, std::string_view b);
// The same for texts that are equal but for letter case. Differs from one system to another: not to be
// stored.
std::uint64_t FoldedHash(std::string_view text);

}  // namespace korvane
