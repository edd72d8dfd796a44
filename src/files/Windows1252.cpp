// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/Windows1252.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace korvane {

namespace {

// Bytes 80 to 9F; all others are the character of the same number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char16_t CharacterOf(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x80 && value <= 0x9F ? kHighControls[value - 0x80U] : char16_t{value};
}

std::optional<char> ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto* found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

std::string Utf8FromBytes(std::string_view bytes) {
  std::u16string text;
  for (const char byte : bytes) text += CharacterOf(byte);
  const std::u8string utf8 = std::filesystem::path(text).u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace korvane
