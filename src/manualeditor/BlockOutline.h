// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

#include "catalogue/BlockTree.h"
#include "manualeditor/TextSearch.h"

namespace korvane {

class IniTextEdit;

// The blocks of the text, as the game nests them: read anew a moment after the last edit. Gives the text its
// folds and marks the header and the End of the block at the cursor. Lines count from 0, as in the text.
// What it gives out stays until the blocks are read again.
class BlockOutline : public QObject {
  Q_OBJECT

 public:
  explicit BlockOutline(IniTextEdit& text);

  using Blocks = std::vector<TextBlock>;

  // Those of a text that has just been loaded are read now, if nobody has asked before.
  const Blocks& blocks() const;
  // The same to keep: they never change.
  std::shared_ptr<const Blocks> keptBlocks() const;
  // The innermost block with the line, and the blocks around it from the outermost; none outside of all.
  std::vector<const TextBlock*> pathAt(int line) const;
  const TextBlock* blockAt(int line) const;
  // The same for the cursor, as far as the text has been read.
  std::vector<const TextBlock*> currentPath() const;
  const TextBlock* current() const;

  // What a list shows of a block: its header's words.
  static QString captionOf(const TextBlock& block);

  // Another text was loaded. A large one is read when it has been painted.
  void expectNewText();
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
  enum class State { unread, outdated, read };

  void textEdited();
  void read() const;
  std::vector<const TextBlock*> pathOf(const TextBlock* block) const;
  void startFolds();
  void foldSome();
  bool setSomeLevels();
  void finishFolds();
  void followCursor();
  void markMatch(const TextBlock* block);
  TextSpan headerSpan(const TextBlock& block) const;
  TextSpan endSpan(const TextBlock& block) const;

  IniTextEdit& text_;
  mutable std::shared_ptr<const Blocks> blocks_ = std::make_shared<const Blocks>();
  mutable State state_ = State::unread;
  mutable std::uint32_t current_ = TextBlock::kNone;
  std::vector<int> foldLevels_;  // of each line, as the control has them
  std::vector<int> wantedLevels_;
  std::size_t folded_ = 0;  // lines that have what is wanted
  QTimer refreshSoon_;
  QTimer foldSoon_;
};

}  // namespace korvane
