// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

#include "platform/TextEncoding.h"

namespace korvane {

// How texts from the files end their lines, and those of messages.
inline const QString kCrLf = QStringLiteral("\r\n");

inline constexpr int kMostShown = 1000;  // characters

// As much of a text as is ever drawn: laying out a damaged file's single line of megabytes would take
// minutes.
inline QString ShownText(const QString& text) {
  return text.left(kMostShown).replace(kCrLf, QLatin1String("\n"));
}

// The same of a name from a file; no name of a sound file is longer.
inline QString ShownName(std::string_view bytes) {
  return FromBytes(bytes.substr(0, kMostShown));
}

// The text with no line longer than this, broken at blanks where there are any.
inline QString WithShortLines(const QString& text, qsizetype longest) {
  QStringList lines;
  for (QString line : text.split('\n')) {
    while (line.size() > longest) {
      const qsizetype blank = line.lastIndexOf(' ', longest);
      lines += line.left(blank > 0 ? blank : longest);
      line.remove(0, blank > 0 ? blank + 1 : longest);
    }
    lines += line;
  }
  return lines.join('\n');
}

// A tooltip with lines of text from a file, which Qt must not take for one with markup, nor break where it is
// still narrow.
inline QString PlainToolTip(const QString& text) {
  constexpr qsizetype kLongestLine = 100;
  if (text.isEmpty()) return text;
  return "<div style='white-space:pre'>" + WithShortLines(text, kLongestLine).toHtmlEscaped() + "</div>";
}

}  // namespace korvane
