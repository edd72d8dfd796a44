// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ScrollMarks.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace korvane {

namespace {

constexpr int kMarkHeight = 2;  // pixels

QRect GrooveOf(const QScrollBar& bar) {
  QStyleOptionSlider option;
  option.initFrom(&bar);
  option.orientation = bar.orientation();
  option.minimum = bar.minimum();
  option.maximum = bar.maximum();
  option.pageStep = bar.pageStep();
  return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarGroove, &bar);
}

}  // namespace

ScrollMarks::ScrollMarks(QScrollBar& bar) : QWidget(&bar) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  resize(bar.size());
  bar.installEventFilter(this);
}

void ScrollMarks::setLines(int kind, const QColor& colour, std::vector<int> lines) {
  if (lines.empty()) {
    kinds_.erase(kind);
  } else {
    kinds_[kind] = {colour, std::move(lines)};
  }
  update();
}

void ScrollMarks::setLineCount(int count) {
  lineCount_ = std::max(count, 1);
  update();
}

void ScrollMarks::clear() {
  kinds_.clear();
  update();
}

void ScrollMarks::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (const auto& [number, kind] : kinds_) paintKind(painter, kind);
}

// Many lines share a pixel of the bar: each pixel is painted once.
void ScrollMarks::paintKind(QPainter& painter, const Kind& kind) const {
  const QRect groove = GrooveOf(*static_cast<const QScrollBar*>(parentWidget()));
  int painted = -1;
  for (const int line : kind.lines) {
    const int y = groove.top() + static_cast<int>(qint64{line} * groove.height() / lineCount_);
    if (y == painted) continue;
    painted = y;
    painter.fillRect(groove.left(), y, groove.width(), kMarkHeight, kind.colour);
  }
}

bool ScrollMarks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) resize(parentWidget()->size());
  return QWidget::eventFilter(watched, event);
}

}  // namespace korvane
