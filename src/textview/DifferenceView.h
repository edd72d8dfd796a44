// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QWidget>

#include <array>
#include <vector>

#include "textview/ComparedPane.h"

class QLabel;

namespace korvane {

// Two texts side by side, scrolled together: what differs is marked, in changed lines word by word, and equal
// parts are folded. Changes are counted from 0, as in ComparedTexts::changes().
class DifferenceView : public QWidget {
  Q_OBJECT

 public:
  explicit DifferenceView(QWidget* parent = nullptr);

  // Says above each text what it is. nullptr: nothing is shown.
  void show(TextPairPtr pair, const QString& formerTitle, const QString& presentTitle);
  const TextPairPtr& pair() const { return pair_; }
  const QFont& textFont() const { return font_; }
  void setTextFont(const QFont& font);
  // Of all equal parts; one alone is folded and unfolded by a click, or Enter, on its row.
  void setFolded(bool folded);

  int changeCount() const;
  // The one at the cursor or, where there is none, before it; -1 before the first.
  int currentChange() const;
  void goToChange(int change);
  // To the row of a line, counted from 1 in its text: of the present one, or where it has none (0), of the
  // former one.
  void goToLines(std::uint32_t former, std::uint32_t present);
  // The next one behind the cursor or before it; nothing happens behind the last.
  void goToNext();
  void goToPrevious();
  // What is selected in the text that has the keyboard, else in the other one.
  QString selectedText() const;
  // The line at the cursor, from 1, in each text; 0: it has none there.
  std::uint32_t formerLine() const { return currentRow().former; }
  std::uint32_t presentLine() const { return currentRow().present; }

 Q_SIGNALS:
  void currentChangeChanged(int change);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void connectPanes(ComparedPane& pane, ComparedPane& other);
  void toggleFold(int row);
  void setFold(std::size_t row, bool folded);
  void goToRow(std::size_t row);
  void rowMoved(ComparedPane& other, int row);
  void alignWidths();
  void applyLook();
  AlignedRow currentRow() const;

  std::array<QLabel*, 2> titles_{};
  ComparedPane* former_;
  ComparedPane* present_;
  TextPairPtr pair_;
  QFont font_;
  bool folded_ = true;
  std::vector<bool> foldedRows_;  // by row, of folds
  int row_ = 0;
  int change_ = -1;
};

}  // namespace korvane
