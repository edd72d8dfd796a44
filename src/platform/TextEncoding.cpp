// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextEncoding.h"

#include <QList>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

// Bytes 80 to 9F of Windows-1252; all others are the character of the same number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool IsHighControl(unsigned value) {
  return value >= 0x80 && value <= 0x9F;
}

}  // namespace

QString FromBytes(std::string_view bytes) {
  QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  for (QChar& character : text) {
    if (IsHighControl(character.unicode())) character = QChar(kHighControls[character.unicode() - 0x80U]);
  }
  return text;
}

std::optional<char> ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto* found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

std::string ToBytes(QStringView text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const char32_t character : text.toUcs4()) bytes += ByteOf(character).value_or('?');
  return bytes;
}

}  // namespace korvane
