// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

#include "manualeditor/TextSearch.h"
#include "textview/ScintillaView.h"

class QPalette;

namespace korvane {

class ScrollMarks;

// What stands in the margin beside lines: marks that the user sets, and which lines were changed since the
// text was opened and since it was last saved. They move with their lines.
class LineMarks : public QObject {
  Q_OBJECT

 public:
  LineMarks(const ScintillaView& view, ScrollMarks& scrollMarks);

  // Call before and after a new text is put into the control: that is no change of the user's.
  void beginText();
  void endText();
  // Call before and after another text takes the place of this one, which keeps its marks.
  void leaveText();
  void enterText();
  // The text is the file's now: what is changed so far was saved.
  void saved();
  void applyColours(const QPalette& palette);

  void toggle(int line);
  // The next or previous marked line from this one, round the end of the text; -1 when none is marked.
  int next(int line) const;
  int previous(int line) const;

 private:
  struct Edit {
    int line;
    int added;  // lines behind it
  };
  void modified(int position, int kind, int length);
  void endInsertion();
  void shift(int line, int lines);
  int lineAt(qsizetype position) const;
  void forgetEdits();
  void markEdits();
  void markSome();
  void markLines(int from, int to);
  bool isChanged(int line) const;
  void undone();
  void showAtScrollBar();
  void clear(int marker);
  std::vector<int> linesOf(int marker) const;

  ScintillaView view_;
  ScrollMarks& scrollMarks_;
  bool loading_ = false;
  bool saving_ = false;
  std::vector<Edit> edits_;            // whose lines are not marked yet
  std::optional<TextSpan> insertion_;  // the last of them, when its lines are not counted yet
  bool added_ = false;                 // marks that the scroll bar does not show yet
  QTimer markSoon_;
};

}  // namespace korvane
