// SPDX-License-Identifier: GPL-3.0-or-later
// Draws an SVG file in several sizes: <svg> <folder> <colour of its lines> <size>... makes
// <folder>/<size>.png. Used by the build.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

QByteArray Read(const QString& path, const char* colour) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().replace("currentColor", colour) : QByteArray();
}

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
  if (argc < 4) return EXIT_FAILURE;
  QSvgRenderer drawing(Read(QString::fromLocal8Bit(argv[1]), argv[3]));
  if (!drawing.isValid()) return EXIT_FAILURE;
  const QString folder = QString::fromLocal8Bit(argv[2]);
  for (int i = 4; i < argc; ++i) {
    const QString path = QString("%1/%2.png").arg(folder, QString::fromLocal8Bit(argv[i]));
    if (Draw(drawing, std::atoi(argv[i]), path)) continue;
    std::fprintf(stderr, "%s cannot be drawn\n", qPrintable(path));
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
