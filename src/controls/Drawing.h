// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <optional>

namespace korvane {

// A drawing of the program's resources. Its lines take any colour; accents have one of their own.
class Drawing {
 public:
  // `name`: the file's name below resources/ without its ending. Nothing when there is none.
  static std::optional<Drawing> find(const QString& name);

  // Draws it as large as fits into the rectangle, in its middle.
  void paint(QPainter& painter, const QRectF& rect, const QColor& lines) const;

 private:
#ifdef Q_OS_WIN
  QString folder_;  // of its pictures
#else
  QByteArray svg_;  // its lines have the colour "currentColor"
#endif
};

}  // namespace korvane
