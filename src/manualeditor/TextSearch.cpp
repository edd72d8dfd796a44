// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextSearch.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "catalogue/FoldedText.h"
#include "platform/FileText.h"

namespace korvane {

namespace {

std::size_t Size(qsizetype bytes) {
  return static_cast<std::size_t>(bytes);
}

qsizetype Utf8Size(QStringView text) {
  return std::accumulate(text.begin(), text.end(), qsizetype{0}, [](qsizetype size, QChar c) {
    const char16_t unit = c.unicode();
    if (unit < 0x80) return size + 1;
    // The two halves of a pair take two bytes each.
    return size + (unit < 0x800 || c.isSurrogate() ? 2 : 3);
  });
}

std::string_view Part(std::string_view utf8, TextSpan span) {
  return utf8.substr(Size(span.from), Size(span.to - span.from));
}

bool IsWordCharacter(QChar c) {
  return c.isLetterOrNumber() || c == '_';
}

bool IsWholeWord(const QString& text, qsizetype start, qsizetype length) {
  const bool before = start > 0 && IsWordCharacter(text[start - 1]) && IsWordCharacter(text[start]);
  const qsizetype end = start + length;
  const bool behind = end < text.size() && IsWordCharacter(text[end]) && IsWordCharacter(text[end - 1]);
  return !before && !behind;
}

QRegularExpression::PatternOptions PatternOptions(bool matchCase) {
  QRegularExpression::PatternOptions options = QRegularExpression::MultilineOption;
  if (!matchCase) options |= QRegularExpression::CaseInsensitiveOption;
  return options;
}

// Any of CR, LF and CR LF ends a line here.
QString WithAnyLineEnd(const QString& pattern) {
  return QStringLiteral("(*ANYCRLF)") + pattern;
}

QString Expanded(const QString& replacement, const QRegularExpressionMatch& match) {
  QString text;
  for (qsizetype i = 0; i < replacement.size(); ++i) {
    const bool group = replacement[i] == '\\' && i + 1 < replacement.size();
    if (!group) {
      text += replacement[i];
      continue;
    }
    const QChar named = replacement[++i];
    if (named.isDigit()) {
      text += match.captured(named.digitValue());
    } else {
      text += named == 'n' ? QStringLiteral("\r\n") : named == 't' ? QStringLiteral("\t") : QString(named);
    }
  }
  return text;
}

// Letters that are no other ones than these to a search that ignores letter case.
constexpr std::array<std::pair<char, std::string_view>, 2> kOtherForms = {{{'k', "\u212A"}, {'s', "\u017F"}}};

// Finds a text without regard to the case of the letters A to Z.
class FoldedSearch {
 public:
  explicit FoldedSearch(std::string_view sought) : sought_(sought), again_(sought.size()) {
    steps_.fill(sought.size());
    for (std::size_t i = 0; i + 1 < sought.size(); ++i) setStep(sought[i], sought.size() - 1 - i);
    again_ = stepOf(sought.back());
    setStep(sought.back(), 0);
  }

  // From `at` on; npos when there is none. By the last byte of each place it sees how far the next can be.
  std::size_t find(std::string_view text, std::size_t at) const {
    const std::size_t size = sought_.size();
    while (at + size <= text.size()) {
      if (const std::size_t step = stepOf(text[at + size - 1]); step > 0) {
        at += step;
      } else if (EqualFolded(text.substr(at, size), sought_)) {
        return at;
      } else {
        at += again_;
      }
    }
    return std::string_view::npos;
  }

 private:
  std::size_t stepOf(char byte) const { return steps_[static_cast<unsigned char>(byte)]; }
  void setStep(char letter, std::size_t step) {
    const char folded = FoldedByte(letter);
    const bool hasCase = folded >= 'a' && folded <= 'z';
    steps_[static_cast<unsigned char>(folded)] = step;
    if (hasCase) steps_[static_cast<unsigned char>(folded - 'a' + 'A')] = step;
  }

  std::string_view sought_;
  std::size_t again_;  // the step where the last byte fits, but not the others
  std::array<std::size_t, 256> steps_{};
};

bool IsAscii(const QString& text) {
  return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

}  // namespace

TextSearch::TextSearch(const QString& sought, const SearchOptions& options)
    : sought_(sought), options_(options) {
  if (!options.regularExpression && !options.wholeWord && IsAscii(sought)) plain_ = sought.toLatin1();
  if (!options.regularExpression) return;
  expression_ = QRegularExpression(WithAnyLineEnd(sought), PatternOptions(options.matchCase));
}

QString TextSearch::fault() const {
  return options_.regularExpression && !expression_.isValid() ? expression_.errorString() : QString();
}

std::optional<TextSearch::Hit> TextSearch::literalFrom(const QString& text, qsizetype start) const {
  const auto letterCase = options_.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
  const qsizetype found = text.indexOf(sought_, start, letterCase);
  return found < 0 ? std::nullopt : std::optional(Hit{found, sought_.size()});
}

std::optional<TextSearch::Hit> TextSearch::expressionFrom(const QString& text, qsizetype start) const {
  for (qsizetype from = start; from <= text.size();) {
    const QRegularExpressionMatch match = expression_.match(text, from);
    if (!match.hasMatch()) return std::nullopt;
    if (match.capturedLength() > 0) return Hit{match.capturedStart(), match.capturedLength(), match};
    from = match.capturedStart() + 1;
  }
  return std::nullopt;
}

std::optional<TextSearch::Hit> TextSearch::hitFrom(const QString& text, qsizetype start) const {
  if (sought_.isEmpty() || !fault().isEmpty()) return std::nullopt;
  while (start <= text.size()) {
    const auto hit = options_.regularExpression ? expressionFrom(text, start) : literalFrom(text, start);
    if (!hit || !options_.wholeWord || IsWholeWord(text, hit->start, hit->length)) return hit;
    start = hit->start + 1;
  }
  return std::nullopt;
}

void TextSearch::walk(std::string_view utf8, TextSpan range, qsizetype from, const Visit& visit) const {
  const qsizetype start = std::max(from, range.from);
  if (start > range.to) return;
  if (isOfBytes(Part(utf8, {start, range.to}))) return walkBytes(utf8, {start, range.to}, visit);
  const QString before = CharactersOfUtf8(Part(utf8, {range.from, start}));
  const QString text = before + CharactersOfUtf8(Part(utf8, {start, range.to}));
  const QStringView view(text);
  qsizetype counted = before.size();  // characters that lie before `bytes`
  qsizetype bytes = start;
  while (const auto hit = hitFrom(text, counted)) {
    const qsizetype first = bytes + Utf8Size(view.mid(counted, hit->start - counted));
    bytes = first + Utf8Size(view.mid(hit->start, hit->length));
    counted = hit->start + hit->length;
    if (!visit({first, bytes}, *hit)) return;
  }
}

bool TextSearch::isOfBytes(std::string_view utf8) const {
  if (plain_.isEmpty()) return false;
  if (options_.matchCase) return true;
  return std::ranges::none_of(kOtherForms, [&](const auto& form) {
    return plain_.toLower().contains(form.first) && utf8.find(form.second) != std::string_view::npos;
  });
}

// The text need not be converted, which takes longer than to look through it.
void TextSearch::walkBytes(std::string_view utf8, TextSpan within, const Visit& visit) const {
  const std::string_view text = utf8.substr(0, Size(within.to));
  const std::string_view sought(plain_.constData(), Size(plain_.size()));
  const FoldedSearch folded(sought);
  std::size_t at = Size(within.from);
  const auto next = [&] { return options_.matchCase ? text.find(sought, at) : folded.find(text, at); };
  for (std::size_t found = next(); found != std::string_view::npos; found = next()) {
    at = found + sought.size();
    if (!visit({static_cast<qsizetype>(found), static_cast<qsizetype>(at)}, {})) return;
  }
}

std::vector<TextSpan> TextSearch::hits(std::string_view utf8, TextSpan range) const {
  std::vector<TextSpan> found;
  walk(utf8, range, range.from, [&found](const TextSpan& span, const Hit&) {
    found.push_back(span);
    return true;
  });
  return found;
}

std::optional<TextSpan> TextSearch::next(std::string_view utf8, TextSpan range, qsizetype from) const {
  std::optional<TextSpan> found;
  walk(utf8, range, from, [&found](const TextSpan& span, const Hit&) {
    found = span;
    return false;
  });
  return found;
}

std::optional<TextSpan> TextSearch::previous(std::string_view utf8, TextSpan range, qsizetype to) const {
  std::optional<TextSpan> found;
  walk(utf8, range, range.from, [&found, to](const TextSpan& span, const Hit&) {
    if (span.to > to) return false;
    found = span;
    return true;
  });
  return found;
}

QByteArray TextSearch::replacementOf(const Hit& hit, const QString& replacement) const {
  const QString text = options_.regularExpression ? Expanded(replacement, hit.match) : replacement;
  return WithCrLf(text).toUtf8();
}

std::optional<QByteArray> TextSearch::replacementOf(std::string_view utf8, TextSpan span,
                                                    const QString& replacement) const {
  std::optional<QByteArray> result;
  const TextSpan all{0, static_cast<qsizetype>(utf8.size())};
  walk(utf8, all, span.from, [&](const TextSpan& found, const Hit& hit) {
    if (found == span) result = replacementOf(hit, replacement);
    return false;
  });
  return result;
}

TextSearch::Replaced TextSearch::replaced(std::string_view utf8, TextSpan range,
                                          const QString& replacement) const {
  Replaced result;
  qsizetype copied = 0;
  const auto copyTo = [&](qsizetype end) {
    const std::string_view part = Part(utf8, {copied, end});
    result.utf8.append(part.data(), static_cast<qsizetype>(part.size()));
  };
  walk(utf8, range, range.from, [&](const TextSpan& span, const Hit& hit) {
    copyTo(span.from);
    result.utf8.append(replacementOf(hit, replacement));
    copied = span.to;
    ++result.count;
    return true;
  });
  copyTo(static_cast<qsizetype>(utf8.size()));
  return result;
}

}  // namespace korvane
