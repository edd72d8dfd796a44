// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileText.h"

#include <QStringDecoder>

#include "files/Windows1252.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::size_t kPiece = 4096;  // bytes of a text that are looked at together, and on to the line's end

constexpr bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

// These loops have no early exit, so that the compiler takes many bytes at a time.
bool IsAllAscii(std::string_view text) {
  unsigned char bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

bool IsAllCrLf(std::string_view text) {
  if (text.empty() || text.front() == '\n' || text.back() == '\r') return text.empty();
  unsigned char lone = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    const bool differs = (text[i - 1] == '\r') != (text[i] == '\n');
    lone = static_cast<unsigned char>(lone | static_cast<unsigned char>(differs));
  }
  return lone == 0;
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

// Adds the bytes of a piece of the text that begins at `position`. Stops at a character that has no byte.
void AddPiece(std::string_view utf8, qsizetype position, FileBytesOfText& file) {
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
        file.refused = {value, position + static_cast<qsizetype>(i)};
        return;
      }
      file.bytes += *byte;
      i += character.size();
    }
  }
}

}  // namespace

QByteArray Utf8OfFile(std::string_view bytes) {
  if (IsAllAscii(bytes)) return {bytes.data(), static_cast<qsizetype>(bytes.size())};
  return FromBytes(bytes).toUtf8();
}

FileBytesOfText FileOfUtf8(std::string_view utf8) {
  FileBytesOfText file;
  file.bytes.reserve(utf8.size());
  for (std::size_t start = 0; start < utf8.size() && !file.refused;) {
    const std::size_t lf = utf8.find('\n', start + kPiece);
    const std::string_view piece = utf8.substr(start, lf == std::string_view::npos ? lf : lf + 1 - start);
    if (IsAllAscii(piece) && IsAllCrLf(piece)) {  // nearly all of nearly every file
      file.bytes += piece;
    } else {
      AddPiece(piece, static_cast<qsizetype>(start), file);
    }
    start += piece.size();
  }
  return file;
}

KeepableText KeepableOfUtf8(std::string_view utf8) {
  FileBytesOfText file = FileOfUtf8(utf8);
  if (file.refused) return {std::string(utf8), true};
  return {std::move(file.bytes), false};
}

std::string LegibleBytesOfUtf8(std::string_view utf8) {
  std::string bytes;
  for (;;) {
    FileBytesOfText file = FileOfUtf8(utf8);
    bytes += file.bytes;
    if (!file.refused) return bytes;
    const auto position = static_cast<std::size_t>(file.refused->position);
    utf8.remove_prefix(position + LengthOf(utf8[position]));
    bytes += '?';
  }
}

// Unlike Qt's plain conversion, keeps a byte order mark that somebody pasted.
QString CharactersOfUtf8(std::string_view utf8) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  return decoder.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

QString WithCrLf(QString text) {
  return text.replace("\r\n", "\n").replace('\r', '\n').replace('\n', "\r\n");
}

}  // namespace korvane
