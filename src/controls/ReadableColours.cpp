// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ReadableColours.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

// Contrast ratios that the accessibility guidelines ask for.
constexpr double kReadable = 4.5;
constexpr double kHintReadable = 3;  // what a hint says is said elsewhere too

constexpr const char* kItemViews = "QAbstractItemView";
constexpr int kPaleSelection = 108;  // percent darker than the background, as Qt's style has it

constexpr int kPaler = 128;  // alpha, as Qt has it
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

QColor Over(const QColor& ground, const QColor& colour) {
  const float alpha = colour.alphaF();
  const auto mix = [alpha](float below, float above) { return below * (1 - alpha) + above * alpha; };
  return QColor::fromRgbF(mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()),
                          mix(ground.blueF(), colour.blueF()));
}

// Colours that are not set here stay the desktop's: the palette knows which are.
void GiveHints() {
  QPalette palette = QApplication::palette();
  const QColor hint = ReadableHint(palette);
  if (hint == palette.color(QPalette::PlaceholderText)) return;
  palette.setColor(QPalette::PlaceholderText, hint);
  QApplication::setPalette(palette);
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
  const double ground = Luminance(background);
  if (Contrast(Luminance(own), ground) >= kReadable) return own;
  return ground < 0.2 ? kLightBlue : kDarkBlue;
}

QColor ReadableHint(const QPalette& palette) {
  const QColor own = palette.color(QPalette::PlaceholderText);
  const QColor ground = palette.color(QPalette::Base);
  if (Contrast(Luminance(Over(ground, own)), Luminance(ground)) >= kHintReadable) return own;
  QColor pale = palette.color(QPalette::Text);
  pale.setAlpha(kPaler);
  return pale;
}

void ReadableHints::install() {
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new ReadableHints(application));
  GiveHints();
  GiveSelections();
}

bool ReadableHints::eventFilter(QObject* watched, QEvent* event) {
  if (watched == QCoreApplication::instance() && event->type() == QEvent::ApplicationPaletteChange) {
    GiveHints();
    GiveSelections();
  }
  return false;
}

}  // namespace korvane
