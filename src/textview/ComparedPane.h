// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QString>

#include <memory>
#include <string_view>
#include <vector>

#include "compare/AlignedRows.h"
#include "textview/ScintillaView.h"

class QsciScintilla;

namespace korvane {

class ScrollMarks;
class TextLook;

// Two texts, what differs in them, and their rows; none of it changes.
struct TextPair {
  TextPair(std::string former, std::string present, bool partOnly = false)
      : texts(std::move(former), std::move(present), partOnly), aligned(AlignRows(texts)) {}

  ComparedTexts texts;
  AlignedRows aligned;
  // The numbers of the first lines, in the files of which the texts are parts.
  std::uint32_t formerFirst = 1;
  std::uint32_t presentFirst = 1;
};
using TextPairPtr = std::shared_ptr<const TextPair>;

// One of two texts that stand side by side: a text control that can only be read, with a row for each row of
// the pair. Rows are counted from 0.
class ComparedPane : public QObject {
  Q_OBJECT

 public:
  enum class Side { former, present };

  ComparedPane(Side side, QWidget* parent);

  QsciScintilla& control() const { return *text_; }
  void show(TextPairPtr pair);
  void applyLook(const QFont& font, const QPalette& palette);

  void setHidden(std::size_t firstRow, std::size_t count, bool hidden);
  int row() const;
  // Puts the cursor there; the view stays.
  void setRow(int row);
  // So that it stands in the upper part.
  void scrollTo(int row);
  // Pixels that the longest line takes.
  int textWidth() const;
  // Marks on the scroll bar where rows differ, among those that are seen.
  void showAtScrollBar();
  // What is selected, without rows in which this text has no line.
  QString selectedText() const;

 Q_SIGNALS:
  void rowChanged(int row);
  // A fold was clicked, or Enter pressed in it.
  void foldAsked(int row);
  void zoomed(int zoom);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void prepare();
  void fill();
  QByteArray textOf(const AlignedRow& row) const;
  std::uint32_t lineOf(const AlignedRow& row) const;
  void markRows();
  void fitMargin();
  void markWordsInSight();
  void markWords(std::size_t row);
  qsizetype send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

  Side side_;
  QsciScintilla* text_;
  ScintillaView view_;
  TextLook* look_;
  ScrollMarks* scrollMarks_;
  TextPairPtr pair_;
  std::vector<bool> wordsMarked_;  // by row
  int row_ = 0;
};

}  // namespace korvane
