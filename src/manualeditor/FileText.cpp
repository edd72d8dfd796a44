// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FileText.h"

#include <QString>

#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

// The number of bytes of the UTF-8 character that begins with `lead`. The text control holds no others.
constexpr std::size_t LengthOf(char lead) {
  const auto value = static_cast<unsigned char>(lead);
  if (value < 0x80) return 1;
  if (value < 0xE0) return 2;
  return value < 0xF0 ? 3 : 4;
}

char32_t Decode(std::string_view character) {
  constexpr unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t value = static_cast<unsigned char>(character[0]) & kLeadBits[LengthOf(character[0])];
  for (const char next : character.substr(1))
    value = (value << 6U) | (static_cast<unsigned char>(next) & 0x3FU);
  return value;
}

// Adds the line end at `position` as CR LF and gives how many bytes of the text it took.
std::size_t AddLineEnd(std::string_view utf8, std::size_t position, std::string& bytes) {
  bytes += "\r\n";
  return utf8.substr(position, 2) == "\r\n" ? 2 : 1;
}

}  // namespace

QByteArray Utf8OfFile(std::string_view bytes) {
  return FromBytes(bytes).toUtf8();
}

FileBytesOfText FileOfUtf8(std::string_view utf8) {
  FileBytesOfText file;
  file.bytes.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    if (utf8[i] == '\r' || utf8[i] == '\n') {
      i += AddLineEnd(utf8, i, file.bytes);
    } else if (IsAscii(utf8[i])) {
      file.bytes += utf8[i++];
    } else {
      const std::string_view character = utf8.substr(i, LengthOf(utf8[i]));
      const char32_t value = Decode(character);
      const std::optional<char> byte = ByteOf(value);
      if (!byte) {
        file.refused = {value, static_cast<qsizetype>(i)};
        return file;
      }
      file.bytes += *byte;
      i += character.size();
    }
  }
  return file;
}

std::string KeepableOfUtf8(std::string_view utf8) {
  FileBytesOfText file = FileOfUtf8(utf8);
  return file.refused ? std::string(utf8) : std::move(file.bytes);
}

}  // namespace korvane
