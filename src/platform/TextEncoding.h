// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// The game's files are 8-bit text in Windows-1252. Every byte is one character, so that nothing is lost: the
// five bytes without a character of their own (81, 8D, 8F, 90, 9D) stand for the control characters of the
// same number.

QString FromBytes(std::string_view bytes);

// The bytes of a text; a character that has no byte becomes "?". For texts on their way to a look-up, where a
// name that no file can hold matches nothing.
std::string ToBytes(QStringView text);

// The byte of one character, or nothing when the encoding has none for it.
std::optional<char> ByteOf(char32_t character);

}  // namespace korvane
