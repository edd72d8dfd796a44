// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// The game's files are 8-bit text in Windows-1252. Every byte is one character, so that nothing is lost: the
// five bytes without a character of their own (81, 8D, 8F, 90, 9D) stand for the control characters of the
// same number.

char16_t CharacterOf(char byte);

// The byte of one character, or nothing when the encoding has none for it.
std::optional<char> ByteOf(char32_t character);

// The same text in UTF-8, as paths have it.
std::string Utf8FromBytes(std::string_view bytes);

}  // namespace korvane
