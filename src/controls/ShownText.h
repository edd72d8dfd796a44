// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// As much of a text as is ever drawn: laying out a damaged file's single line of megabytes would take
// minutes.
inline QString ShownText(const QString& text) {
  constexpr qsizetype kMost = 1000;
  return text.left(kMost).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace korvane
