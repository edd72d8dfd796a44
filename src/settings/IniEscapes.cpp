// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/IniEscapes.h"

#include <QStringDecoder>
#include <QStringList>

#include <string_view>

namespace korvane {

namespace {

constexpr std::string_view kEscapeLetters = "abfnrtv\"?'\\";
constexpr std::string_view kEscaped = "\a\b\f\n\r\t\v\"?'\\";
const QString kZeroText = QStringLiteral("@String(");  // a text that holds zero characters

bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsOctalDigit(char c) {
  return c >= '0' && c <= '7';
}

bool IsPlainInKey(QChar c) {
  return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == '_' || c == '-' || c == '.');
}

QByteArray Hex(ushort number, int digits) {
  return QByteArray::number(number, 16).toUpper().rightJustified(digits, '0');
}

// A text that begins with "@" could be taken for a value of another type.
QString Marked(const QString& value) {
  if (value.contains(QChar(u'\0'))) return kZeroText + value + ')';
  return value.startsWith('@') ? '@' + value : value;
}

std::optional<QString> Unmarked(const QString& text) {
  if (!text.startsWith('@')) return text;
  if (text.startsWith("@@")) return text.mid(1);
  for (const QString& mark : {kZeroText, QStringLiteral("@ByteArray(")}) {
    if (text.startsWith(mark) && text.endsWith(')')) return text.mid(mark.size()).chopped(1);
  }
  return std::nullopt;
}

// A byte order mark is a character like others here: the bytes may be any piece of a value.
QString Text(const QByteArray& utf8) {
  return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(utf8);
}

// Reads a value from its first byte to its last.
class ValueReader {
 public:
  explicit ValueReader(const QByteArray& bytes) : bytes_(bytes) {}

  QString read() {
    skipBlanks();
    while (at_ < bytes_.size()) readPart();
    endItem();
    return items_.join(", ");
  }

 private:
  void readPart() {
    const char c = bytes_[at_];
    if (c == '\\') return readEscape();
    if (c == '"') return readQuote();
    if (c == ',' && !inQuotes_) {
      endItem();
      ++at_;
      return skipBlanks();
    }
    const qsizetype start = at_++;
    while (at_ < bytes_.size() && std::string_view("\\\",").find(bytes_[at_]) == std::string_view::npos)
      ++at_;
    item_ += Text(bytes_.mid(start, at_ - start));
  }

  void readQuote() {
    ++at_;
    quoted_ = true;
    inQuotes_ = !inQuotes_;
    if (!inQuotes_) skipBlanks();
  }

  void readEscape() {
    const char c = ++at_ < bytes_.size() ? bytes_[at_++] : '\0';
    if (const std::size_t i = kEscapeLetters.find(c); c != '\0' && i != std::string_view::npos) {
      item_ += QLatin1Char(kEscaped[i]);
    } else if (c == 'x') {
      item_ += readNumber(16, IsHexDigit);
    } else if (IsOctalDigit(c)) {
      --at_;
      item_ += readNumber(8, IsOctalDigit);
    } else if (c == '\r' && at_ < bytes_.size() && bytes_[at_] == '\n') {
      ++at_;
    }
  }

  QString readNumber(uint base, bool (*isDigit)(char)) {
    const qsizetype start = at_;
    uint number = 0;
    for (; at_ < bytes_.size() && isDigit(bytes_[at_]); ++at_) {
      number = number * base + QByteArray(1, bytes_[at_]).toUInt(nullptr, static_cast<int>(base));
    }
    return at_ > start ? QString(QChar(static_cast<char16_t>(number))) : QString();
  }

  void skipBlanks() {
    while (at_ < bytes_.size() && (bytes_[at_] == ' ' || bytes_[at_] == '\t')) ++at_;
  }

  void endItem() {
    if (!quoted_) {
      while (item_.endsWith(' ') || item_.endsWith('\t')) item_.chop(1);
    }
    items_ += item_;
    item_.clear();
    quoted_ = false;
  }

  const QByteArray& bytes_;
  qsizetype at_ = 0;
  bool inQuotes_ = false;
  bool quoted_ = false;
  QString item_;
  QStringList items_;
};

QByteArray EscapedCharacter(QChar c) {
  if (c == u'\0') return "\\0";
  const auto code = static_cast<char>(c.unicode() < 0x80 ? c.unicode() : 0);
  const std::size_t i = kEscaped.find(code);
  if (c != '?' && c != '\'' && i != std::string_view::npos) return {'\\' + QByteArray(1, kEscapeLetters[i])};
  if (c.unicode() < 0x20) return "\\x" + QByteArray::number(c.unicode(), 16);
  return {};
}

}  // namespace

QByteArray EscapedIniKey(const QString& key) {
  QByteArray bytes;
  for (const QChar c : key) {
    if (IsPlainInKey(c))
      bytes += c.toLatin1();
    else if (c == '/')
      bytes += '\\';
    else if (c.unicode() <= 0xff)
      bytes += '%' + Hex(c.unicode(), 2);
    else
      bytes += "%U" + Hex(c.unicode(), 4);
  }
  return bytes;
}

QString UnescapedIniKey(const QByteArray& bytes) {
  QString key;
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const bool isWide = bytes.mid(i, 2) == "%U";
    const QByteArray digits = isWide ? bytes.mid(i + 2, 4) : bytes.mid(i + 1, 2);
    bool isNumber = false;
    const ushort code = bytes[i] == '%' ? digits.toUShort(&isNumber, 16) : ushort{0};
    if (isNumber && digits.size() == (isWide ? 4 : 2)) {
      key += QChar(code);
      i += isWide ? 5 : 2;
    } else {
      key += bytes[i] == '\\' ? QChar('/') : QChar(QLatin1Char(bytes[i]));
    }
  }
  return key;
}

QByteArray EscapedIniValue(const QString& value) {
  const QString marked = Marked(value);
  QByteArray bytes;
  qsizetype plainFrom = 0;
  bool afterNumber = false;  // a digit behind a character that is written as a number would count to it
  for (qsizetype i = 0; i < marked.size(); ++i) {
    const QChar c = marked[i];
    QByteArray escaped = EscapedCharacter(c);
    const bool isDigit = c.unicode() < 0x80 && IsHexDigit(c.toLatin1());
    if (afterNumber && isDigit) escaped = "\\x" + QByteArray::number(c.unicode(), 16);
    afterNumber = escaped == "\\0" || escaped.startsWith("\\x");
    if (escaped.isEmpty()) continue;
    bytes += QStringView(marked).mid(plainFrom, i - plainFrom).toUtf8() + escaped;
    plainFrom = i + 1;
  }
  bytes += QStringView(marked).mid(plainFrom).toUtf8();
  const bool needsQuotes = marked.contains(';') || marked.contains(',') || marked.contains('=') ||
                           marked.startsWith(' ') || marked.endsWith(' ');
  return needsQuotes ? '"' + bytes + '"' : bytes;
}

std::optional<QString> UnescapedIniValue(const QByteArray& bytes) {
  return Unmarked(ValueReader(bytes).read());
}

}  // namespace korvane
