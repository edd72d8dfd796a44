// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QSvgRenderer>

#include "controls/Drawing.h"

namespace korvane {

std::optional<Drawing> Drawing::find(const QString& name) {
  QFile file(":/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  Drawing drawing;
  drawing.svg_ = file.readAll();
  return drawing;
}

void Drawing::paint(QPainter& painter, const QRectF& rect, const QColor& lines) const {
  QSvgRenderer renderer(QByteArray(svg_).replace("currentColor", lines.name().toLatin1()));
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  renderer.render(&painter, rect);
}

}  // namespace korvane
