// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/CmdSetFormat.h"

#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>

#include "controls/Icons.h"
#include "controls/Named.h"

namespace korvane {

namespace {

constexpr QSize kSize(358, 40);
constexpr int kColumns = 6;
constexpr int kRows = 2;
constexpr int kDigits = 12;  // pixels

// The lines of the grid lie on the first and the last pixel and evenly in between.
QRect Cell(int column, int row) {
  const QPoint from((kSize.width() - 1) * column / kColumns, (kSize.height() - 1) * row / kRows);
  const QPoint to((kSize.width() - 1) * (column + 1) / kColumns, (kSize.height() - 1) * (row + 1) / kRows);
  return {from, to};
}

// `ratio`: device pixels for one pixel of the picture.
QImage DrawSlots(qreal ratio) {
  QImage picture(kSize * ratio, QImage::Format_RGB888);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  QFont font = painter.font();
  font.setPixelSize(kDigits);
  painter.setFont(font);
  painter.setPen(Qt::black);
  for (int column = 0; column < kColumns; ++column) {
    for (int row = 0; row < kRows; ++row) {
      const QRect cell = Cell(column, row);
      painter.drawRect(cell.adjusted(0, 0, -1, -1));
      painter.drawText(cell, Qt::AlignCenter, QString::number(column * kRows + row + 1));
    }
  }
  return picture;
}

}  // namespace

CmdSetFormat::CmdSetFormat(SettingsStore& store, QWidget* parent) : ToolDialog(parent, &store) {
  setObjectName("CmdSetFormat");
  setWindowTitle("Command Set Format");
  setWindowIcon(ApplicationIcon());
  auto* picture = Named("Picture1", new QLabel);
  picture->setAccessibleName("Top row: slots 1, 3, 5, 7, 9, 11. Bottom row: slots 2, 4, 6, 8, 10, 12.");
  picture->setPixmap(QPixmap::fromImage(DrawSlots(devicePixelRatioF()), Qt::ColorOnly));
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(picture);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace korvane
