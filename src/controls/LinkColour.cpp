// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LinkColour.h"

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr double kReadable = 4.5;  // contrast ratio that the accessibility guidelines ask for
constexpr QRgb kLightBlue = qRgb(0x8a, 0xb8, 0xff);
constexpr QRgb kDarkBlue = qRgb(0x00, 0x3d, 0xa6);

double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

double Contrast(double a, double b) {
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace

QColor ReadableLink(const QPalette& palette, const QColor& background) {
  const QColor own = palette.color(QPalette::Link);
  const double ground = Luminance(background);
  if (Contrast(Luminance(own), ground) >= kReadable) return own;
  return ground < 0.2 ? kLightBlue : kDarkBlue;
}

}  // namespace korvane
