// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

#include "catalogue/BlockTree.h"
#include "manualeditor/TextSearch.h"

namespace korvane {

class IniTextEdit;

// The blocks of the text, as the game nests them: read anew a moment after the last edit. Gives the text its
// folds and marks the header and the End of the block at the cursor. Lines count from 0, as in the text.
class BlockOutline : public QObject {
  Q_OBJECT

 public:
  explicit BlockOutline(IniTextEdit& text);

  const std::vector<TextBlock>& blocks() const { return blocks_; }
  // The innermost block with the line, and the blocks around it from the outermost; none outside of all.
  std::vector<const TextBlock*> pathAt(int line) const;
  const TextBlock* blockAt(int line) const;

  // What a list shows of a block: its header's words.
  static QString captionOf(const TextBlock& block);

  void refresh();
  void goTo(const TextBlock& block);
  // From the header of the block at the cursor to its End, from anywhere else in it to the header.
  void jumpToMatch();
  void foldAll();
  void unfoldAll();
  void toggleFold();

 Q_SIGNALS:
  void changed();
  // The cursor stands in another block than before, or in none.
  void currentChanged();

 private:
  void applyFolds();
  void followCursor();
  void markMatch(const TextBlock* block);
  TextSpan headerSpan(const TextBlock& block) const;
  TextSpan endSpan(const TextBlock& block) const;

  IniTextEdit& text_;
  std::vector<TextBlock> blocks_;
  std::vector<int> foldLevels_;  // of each line, as the control has them
  std::uint32_t current_ = TextBlock::kNone;
  QTimer refreshSoon_;
};

}  // namespace korvane
