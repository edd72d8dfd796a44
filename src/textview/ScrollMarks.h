// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QWidget>

#include <map>
#include <vector>

class QScrollBar;

namespace korvane {

// Small lines on a scroll bar that say where in the text something stands. The mouse goes through to the bar.
class ScrollMarks : public QWidget {
 public:
  explicit ScrollMarks(QScrollBar& bar);

  // The lines of one kind, from 0; each kind has its own colour. No lines take the kind away.
  void setLines(int kind, const QColor& colour, std::vector<int> lines);
  void setLineCount(int count);
  // Takes all kinds away.
  void clear();

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Kind {
    QColor colour;
    std::vector<int> lines;
  };
  void paintKind(QPainter& painter, const Kind& kind) const;

  std::map<int, Kind> kinds_;
  int lineCount_ = 1;
};

}  // namespace korvane
