// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// The resources of a static library are only there when they are asked for, outside any namespace.
static void InitIconResources() {
  Q_INIT_RESOURCE(korvane_icons);
}

namespace korvane {

namespace {

constexpr qreal kDisabledOpacity = 0.4;

QColor LineColour(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
}

// Lines of the drawings have the colour "currentColor"; only accents bring a colour of their own.
class ThemeIconEngine : public QIconEngine {
 public:
  explicit ThemeIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QSvgRenderer renderer(QByteArray(drawing_).replace("currentColor", LineColour(mode).name().toLatin1()));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new ThemeIconEngine(*this); }

 private:
  QByteArray drawing_;
};

}  // namespace

QIcon ThemeIcon(const QString& name) {
  InitIconResources();
  QFile file(":/icons/" + name + ".svg");
  return file.open(QIODevice::ReadOnly) ? QIcon(new ThemeIconEngine(file.readAll())) : QIcon();
}

QIcon ApplicationIcon() {
  InitIconResources();
  QFile file(":/korvane.svg");
  return file.open(QIODevice::ReadOnly) ? QIcon(new ThemeIconEngine(file.readAll())) : QIcon();
}

}  // namespace korvane
