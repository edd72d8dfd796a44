// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <vector>

#include "manualeditor/TextCheck.h"
#include "textview/ScintillaView.h"

class QPalette;
class QPoint;

namespace korvane {

class ScrollMarks;

// Findings in the text: a wavy line below what they are about, a sign in the margin, and a small line on
// the scroll bar. They move with the text.
class FindingMarks : public QObject {
  Q_OBJECT

 public:
  FindingMarks(const ScintillaView& view, ScrollMarks& scrollMarks);

  // Those of a text that another one took the place of.
  struct Shown {
    std::vector<TextFinding> findings;
    std::size_t marked = 0;  // of them
  };
  // Call before another text, which has these findings, takes the place of the shown one. Gives its findings.
  Shown exchange(Shown next);
  // Call when it has.
  void enterText();

  // In the order of the text, in the place of those before.
  void show(std::vector<TextFinding> findings);
  const std::vector<TextFinding>& findings() const { return shown_.findings; }
  // The first finding that starts behind the position, or the last that starts before it, round the ends of
  // the text; nullptr when there is none.
  const TextFinding* next(qsizetype position) const;
  const TextFinding* previous(qsizetype position) const;
  // Those that touch the span, and when there are none, those of its first line.
  std::vector<const TextFinding*> at(TextSpan span) const;
  // What is to be told at the point of the control's viewport; in the margin it is told of the whole line.
  QString textAt(const QPoint& point) const;
  // Takes away those that touch the span.
  void remove(TextSpan span);

  void applyColours(const QPalette& palette);

 private:
  void markSome();
  void mark(const TextFinding& finding);
  void clear();
  void clearMarks();
  void modified(int position, int kind, int length);
  void showAtScrollBar();
  qsizetype lineAt(qsizetype position) const;

  ScintillaView view_;
  ScrollMarks& scrollMarks_;
  Shown shown_;
  QTimer markSoon_;
};

// "error: text", and what mends it; as it is shown for one finding or several.
QString FindingsText(const std::vector<const TextFinding*>& findings);

}  // namespace korvane
