// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/MoveCommands.h"

#include "manualeditor/IniTextEdit.h"

namespace korvane {

MoveCommands::MoveCommands(IniTextEdit& text, BlockOutline& outline)
    : QObject(&text), text_(text), outline_(outline), popup_(new JumpPopup(&text)) {
  connect(popup_, &JumpPopup::chosen, this, &MoveCommands::goTo);
}

void MoveCommands::goToLine() {
  popup_->ask(QStringLiteral("Line, 1 to %1").arg(text_.lineCount()), {});
}

void MoveCommands::goToBlock() {
  outline_.refresh();
  std::vector<JumpPopup::Item> items;
  int current = -1;
  for (const TextBlock& block : outline_.blocks()) {
    if (block.depth > 0) continue;
    if (static_cast<int>(block.firstLine) <= text_.cursorLine() + 1) current = static_cast<int>(items.size());
    items.push_back({BlockOutline::captionOf(block), static_cast<int>(block.firstLine)});
  }
  popup_->ask("Block or line", std::move(items), current);
}

void MoveCommands::goTo(int line) {
  text_.goTo(line - 1, 0, 0);
  text_.setFocus();
}

void MoveCommands::jumpToMatch() {
  outline_.jumpToMatch();
}

void MoveCommands::toggleFold() {
  outline_.toggleFold();
}

void MoveCommands::foldAll() {
  outline_.foldAll();
}

void MoveCommands::unfoldAll() {
  outline_.unfoldAll();
}

}  // namespace korvane
