// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>

namespace korvane {

// The colour of links on the background: the palette's own where it can be read there, else a light or a dark
// blue.
QColor ReadableLink(const QPalette& palette, const QColor& background);

}  // namespace korvane
