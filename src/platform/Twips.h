// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace korvane {

// Device-independent pixels of a length in twips (1/1440 inch) at the logical resolution of the widget's
// screen: 15 twips are one pixel at 96 dpi.
int PixelsFromTwips(int twips, const QWidget& widget);

}  // namespace korvane
