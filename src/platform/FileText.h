// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// The text control holds a file's text as UTF-8, one character for each byte of the file.
QByteArray Utf8OfFile(std::string_view bytes);

// The characters of a UTF-8 text; a byte order mark is a character like any other.
QString CharactersOfUtf8(std::string_view utf8);

// The text with every line end, of whatever kind, as CR LF.
QString WithCrLf(QString text);

// A character of the text that no file can hold.
struct CharacterWithoutByte {
  char32_t character = 0;
  qsizetype position = 0;  // in the UTF-8 text, in bytes
};

struct FileBytesOfText {
  std::string bytes;                            // up to the first character that has no byte
  std::optional<CharacterWithoutByte> refused;  // that character
};

// The bytes of a file that holds the text: every line ends in CR LF, nothing else changes.
FileBytesOfText FileOfUtf8(std::string_view utf8);

// The same for a text that is to be kept whatever it holds: all of it in UTF-8 where a character has no byte.
struct KeepableText {
  std::string bytes;
  bool utf8 = false;
};
KeepableText KeepableOfUtf8(std::string_view utf8);

// The same for somebody who only reads it: '?' stands for each character that no file can hold.
std::string LegibleBytesOfUtf8(std::string_view utf8);

}  // namespace korvane
