// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>
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

// A tooltip with lines of text from a file, which Qt must not take for one with markup.
inline QString PlainToolTip(const QString& text) {
  if (text.isEmpty()) return text;
  constexpr qsizetype kWidest = 100;  // characters of a line
  const QStringList lines = text.split('\n');
  const bool fits = std::ranges::all_of(lines, [](const QString& line) { return line.size() <= kWidest; });
  const QString wrap = fits ? "pre" : "pre-wrap";
  return "<span style='white-space:" + wrap + "'>" + text.toHtmlEscaped() + "</span>";
}

}  // namespace korvane
