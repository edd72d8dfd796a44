// SPDX-License-Identifier: GPL-3.0-or-later
// Draws an SVG file in several sizes: <svg> <folder> <size>... makes <folder>/<size>.png. Used by the build.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool Draw(QSvgRenderer& drawing, int size, const QString& path) {
  QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  drawing.render(&painter);
  painter.end();
  return picture.save(path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return EXIT_FAILURE;
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  const QString folder = QString::fromLocal8Bit(argv[2]);
  for (int i = 3; i < argc; ++i) {
    const QString path = QString("%1/%2.png").arg(folder, QString::fromLocal8Bit(argv[i]));
    if (Draw(drawing, std::atoi(argv[i]), path)) continue;
    std::fprintf(stderr, "%s cannot be drawn\n", qPrintable(path));
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
