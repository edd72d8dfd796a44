// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

#include "controls/Drawing.h"
#include "controls/ReadableColours.h"

// The resources of a static library are only there when they are asked for, outside any namespace.
static void InitIconResources() {
  Q_INIT_RESOURCE(korvane_icons);
}

namespace korvane {

namespace {

constexpr qreal kDisabledOpacity = 0.4;

QColor LineColour(QIcon::Mode mode) {
  return mode == QIcon::Selected ? SelectedRowText() : QGuiApplication::palette().color(QPalette::WindowText);
}

class ThemeIconEngine : public QIconEngine {
 public:
  ThemeIconEngine(QString name, Drawing drawing) : name_(std::move(name)), drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    drawing_.paint(*painter, rect, LineColour(mode));
    painter->restore();
  }

  // Asked at every painting of a button, and drawing takes far longer than a cache look-up.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QString key = QStringLiteral("%1 %2x%3 %4 %5")
                            .arg(name_, QString::number(size.width()), QString::number(size.height()),
                                 LineColour(mode).name(), QString::number(mode));
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = drawn(size, mode, state);
    QPixmapCache::insert(key, picture);
    return picture;
  }

  QIconEngine* clone() const override { return new ThemeIconEngine(*this); }

 private:
  QPixmap drawn(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QString name_;  // of the drawing
  Drawing drawing_;
};

QIcon IconOf(const QString& name) {
  InitIconResources();
  const std::optional<Drawing> drawing = Drawing::find(name);
  return drawing ? QIcon(new ThemeIconEngine(name, *drawing)) : QIcon();
}

}  // namespace

QIcon ThemeIcon(const QString& name) {
  return IconOf("icons/" + name);
}

QIcon ApplicationIcon() {
  return IconOf("korvane");
}

}  // namespace korvane
