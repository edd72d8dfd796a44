// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Twips.h"

#include <QWidget>

namespace korvane {

namespace {

constexpr int kTwipsPerInch = 1440;

}  // namespace

int PixelsFromTwips(int twips, const QWidget& widget) {
  return twips * widget.logicalDpiX() / kTwipsPerInch;
}

}  // namespace korvane
