// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QRegularExpression>
#include <QString>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

// A stretch of a UTF-8 text, in bytes from its start; `to` is behind the last byte.
struct TextSpan {
  qsizetype from = 0;
  qsizetype to = 0;

  bool operator==(const TextSpan&) const = default;
};

struct SearchOptions {
  bool matchCase = false;
  bool wholeWord = false;
  bool regularExpression = false;  // as QRegularExpression reads it; ^ and $ stand for the ends of lines
};

// Finds a text, or what a regular expression describes, in a UTF-8 text.
class TextSearch {
 public:
  TextSearch(const QString& sought, const SearchOptions& options);

  // Why the regular expression cannot be used; empty when it can.
  QString fault() const;
  // Looking through a text of some megabytes takes no longer than painting one screen of it.
  bool isQuick() const { return !plain_.isEmpty(); }

  // The hits that lie in the range, in their order; they do not overlap. An empty hit is none.
  std::vector<TextSpan> hits(std::string_view utf8, TextSpan range) const;
  // The first hit that starts at `from` or behind it, and the last one that ends at `to` or before it.
  std::optional<TextSpan> next(std::string_view utf8, TextSpan range, qsizetype from) const;
  std::optional<TextSpan> previous(std::string_view utf8, TextSpan range, qsizetype to) const;

  struct Replaced {
    QByteArray utf8;  // the whole text
    int count = 0;
  };
  // All hits of the range replaced. In the replacement for a regular expression \1 to \9 stand for its
  // groups, \n for a line end and \t for a tab.
  Replaced replaced(std::string_view utf8, TextSpan range, const QString& replacement) const;
  // What takes the place of one span; nothing when it is no hit.
  std::optional<QByteArray> replacementOf(std::string_view utf8, TextSpan span,
                                          const QString& replacement) const;

 private:
  struct Hit {
    qsizetype start = 0;  // in characters of UTF-16
    qsizetype length = 0;
    QRegularExpressionMatch match{};
  };
  // Gets each hit, and says whether to go on.
  using Visit = std::function<bool(const TextSpan&, const Hit&)>;

  void walk(std::string_view utf8, TextSpan range, qsizetype from, const Visit& visit) const;
  void walkBytes(std::string_view utf8, TextSpan within, const Visit& visit) const;
  bool isOfBytes(std::string_view utf8) const;
  std::optional<Hit> hitFrom(const QString& text, qsizetype start) const;
  std::optional<Hit> literalFrom(const QString& text, qsizetype start) const;
  std::optional<Hit> expressionFrom(const QString& text, qsizetype start) const;
  QByteArray replacementOf(const Hit& hit, const QString& replacement) const;

  QString sought_;
  QByteArray plain_;  // the same where it can be found byte by byte
  SearchOptions options_;
  QRegularExpression expression_;
};

}  // namespace korvane
