// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QImage>

#include <algorithm>

#include "controls/Drawing.h"

namespace korvane {

namespace {

// The smallest picture that is as large as wanted, or the largest one.
int SizeFor(const QString& folder, double wanted) {
  QList<int> sizes;
  for (const QString& file : QDir(folder).entryList(QDir::Files)) sizes += file.section('.', 0, 0).toInt();
  std::sort(sizes.begin(), sizes.end());
  const auto found = std::lower_bound(sizes.cbegin(), sizes.cend(), wanted);
  return found != sizes.cend() ? *found : sizes.last();
}

QImage Picture(const QString& folder, const QString& colour, int size) {
  const QImage picture(QString("%1/%2/%3.png").arg(folder, colour, QString::number(size)));
  return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// What differs between the picture with black lines and the one with white ones is the lines' share of a
// pixel.
QRgb Coloured(QRgb black, QRgb white, QRgb lines) {
  const auto mixed = [](int onBlack, int onWhite, int line) {
    return onBlack + (std::max(0, onWhite - onBlack) * line + 127) / 255;
  };
  return qRgba(mixed(qRed(black), qRed(white), qRed(lines)),
               mixed(qGreen(black), qGreen(white), qGreen(lines)),
               mixed(qBlue(black), qBlue(white), qBlue(lines)), qAlpha(black));
}

QImage Coloured(QImage black, const QImage& white, QRgb lines) {
  for (int y = 0; y < black.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(black.scanLine(y));
    const auto* other = reinterpret_cast<const QRgb*>(white.constScanLine(y));
    for (int x = 0; x < black.width(); ++x) line[x] = Coloured(line[x], other[x], lines);
  }
  return black;
}

}  // namespace

std::optional<Drawing> Drawing::find(const QString& name) {
  if (!QDir(":/" + name).exists("black")) return std::nullopt;
  Drawing drawing;
  drawing.folder_ = ":/" + name;
  return drawing;
}

void Drawing::paint(QPainter& painter, const QRectF& rect, const QColor& lines) const {
  const double side = std::min(rect.width(), rect.height());
  const int size = SizeFor(folder_ + "/black", side * painter.device()->devicePixelRatioF());
  const QImage picture =
      Coloured(Picture(folder_, "black", size), Picture(folder_, "white", size), lines.rgb());
  QRectF place(0, 0, side, side);
  place.moveCenter(rect.center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, picture);
}

}  // namespace korvane
