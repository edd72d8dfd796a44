// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ReadableColours.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr double kReadable = 4.5;
constexpr double kSelectedReadable = 5.2;  // marks may lie on what is selected
constexpr int kPalest = 60;                // percent of the ink
constexpr int kPaleStep = 5;
constexpr int kShadeStep = 103;  // percent
constexpr int kMostShades = 60;

constexpr const char* kItemViews = "QAbstractItemView";
constexpr int kPaleSelection = 108;  // percent darker than the background, as Qt's style has it

constexpr QRgb kLightBlue = qRgb(0x8a, 0xb8, 0xff);
constexpr QRgb kDarkBlue = qRgb(0x00, 0x3d, 0xa6);

double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

QColor Over(const QColor& ground, const QColor& colour) {
  const float alpha = colour.alphaF();
  const auto mix = [alpha](float below, float above) { return below * (1 - alpha) + above * alpha; };
  return QColor::fromRgbF(mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()),
                          mix(ground.blueF(), colour.blueF()));
}

QColor Mixed(const QColor& ground, QColor ink, double share) {
  ink.setAlphaF(static_cast<float>(share));
  return Over(ground, ink);
}

// The ground moves away from the text until that can be read.
QColor ReadableGround(QColor ground, const QColor& text) {
  const bool darker = Luminance(text) > Luminance(ground);
  for (int shade = 0; shade < kMostShades && ContrastOf(ground, text) < kSelectedReadable; ++shade)
    ground = darker ? ground.darker(kShadeStep) : ground.lighter(kShadeStep);
  return ground;
}

// Colours that are not set here stay the desktop's: the palette knows which are.
void MakeReadable() {
  const QPalette palette = QApplication::palette();
  const QPalette readable = WithReadableText(palette);
  if (readable != palette) QApplication::setPalette(readable);
}

// The style of Windows selects rows in a pale colour of its own, whatever the palette says, and writes them
// as usual. What is drawn besides it has to know.
void GiveSelections() {
  if (!QApplication::style()->inherits("QWindowsVistaStyle")) return;
  QPalette palette = QApplication::palette(kItemViews);
  if (palette.color(QPalette::HighlightedText) == palette.color(QPalette::Text)) return;
  palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
  palette.setColor(QPalette::Highlight, palette.color(QPalette::Base).darker(kPaleSelection));
  QApplication::setPalette(palette, kItemViews);
}

}  // namespace

QColor SelectedRowText() {
  return QApplication::palette(kItemViews).color(QPalette::HighlightedText);
}

QColor ReadableLink(const QPalette& palette, const QColor& background) {
  const QColor own = palette.color(QPalette::Link);
  if (ContrastOf(own, background) >= kReadable) return own;
  return Luminance(background) < 0.2 ? kLightBlue : kDarkBlue;
}

QColor PaleText(const QColor& ink, const QColor& ground) {
  for (int percent = kPalest; percent < 100; percent += kPaleStep) {
    const QColor pale = Mixed(ground, ink, percent / 100.0);
    if (ContrastOf(pale, ground) >= kReadable) return pale;
  }
  return ink;
}

double ContrastOf(const QColor& a, const QColor& b) {
  const double ofA = Luminance(a);
  const double ofB = Luminance(b);
  return (std::max(ofA, ofB) + 0.05) / (std::min(ofA, ofB) + 0.05);
}

// Where nothing has to change, nothing is set.
QPalette WithReadableText(QPalette palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor hint = Over(base, palette.color(QPalette::PlaceholderText));
  if (ContrastOf(hint, base) < kReadable)
    palette.setColor(QPalette::PlaceholderText, PaleText(palette.color(QPalette::Text), base));
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    const QColor ground = palette.color(group, QPalette::Highlight);
    const QColor readable = ReadableGround(ground, palette.color(group, QPalette::HighlightedText));
    if (readable != ground) palette.setColor(group, QPalette::Highlight, readable);
  }
  return palette;
}

void ReadablePalette::install() {
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new ReadablePalette(application));
  MakeReadable();
  GiveSelections();
}

bool ReadablePalette::eventFilter(QObject* watched, QEvent* event) {
  if (watched == QCoreApplication::instance() && event->type() == QEvent::ApplicationPaletteChange) {
    MakeReadable();
    GiveSelections();
  }
  return false;
}

}  // namespace korvane
