// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/StepPicture.h"

#include <QPainter>

// The resources of a static library are only there when they are asked for, outside any namespace.
static void InitWizardResources() {
  Q_INIT_RESOURCE(korvane_wizard);
}

namespace korvane {

namespace {

constexpr int kLinesWide = 8;  // in heights of a text line
constexpr int kLinesHigh = 10;
constexpr double kCorner = 4;
constexpr QRgb kTop = 0xff2b5876;
constexpr QRgb kBottom = 0xff16303f;

}  // namespace

StepPicture::StepPicture(int step, QWidget* parent) : QWidget(parent) {
  InitWizardResources();
  drawing_ = Drawing::find(QString("wizard/step%1").arg(step));
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize StepPicture::sizeHint() const {
  return fontMetrics().height() * QSize(kLinesWide, kLinesHigh);
}

void StepPicture::paintEvent(QPaintEvent*) {
  QLinearGradient panel(rect().topLeft(), rect().bottomLeft());
  panel.setColorAt(0, kTop);
  panel.setColorAt(1, kBottom);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(panel);
  painter.drawRoundedRect(rect(), kCorner, kCorner);
  const double side = 0.7 * std::min(width(), height());
  const double margin = (width() - side) / 2;
  if (drawing_) drawing_->paint(painter, {margin, margin, side, side}, Qt::black);
}

}  // namespace korvane
