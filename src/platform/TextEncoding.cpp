// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextEncoding.h"

#include <QList>

#include "files/Windows1252.h"

namespace korvane {

QString FromBytes(std::string_view bytes) {
  QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  for (QChar& character : text) {
    if (character.unicode() >= 0x80) character = QChar(CharacterOf(character.toLatin1()));
  }
  return text;
}

std::string ToBytes(QStringView text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const char32_t character : text.toUcs4()) bytes += ByteOf(character).value_or('?');
  return bytes;
}

}  // namespace korvane
