// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/MoveCommands.h"

#include <QAction>
#include <QMenu>

#include "controls/Named.h"
#include "manualeditor/IniTextEdit.h"

namespace korvane {

struct MoveCommands::Command {
  const char* name;
  const char* caption;
  void (MoveCommands::*run)();
  const char* shortcut;
  bool inView;
};
constexpr MoveCommands::Command MoveCommands::kCommands[] = {
    {"goToLine", "Go to &Line...", &MoveCommands::goToLine, "Ctrl+G", false},
    {"goToBlock", "Go to &Block...", &MoveCommands::goToBlock, "Ctrl+R", false},
    {"jumpToMatch", "&Header or End", &MoveCommands::jumpToMatch, "Ctrl+B", false},
    {"toggleFold", "&Fold or Unfold Block", &MoveCommands::toggleFold, "Ctrl+Shift+[", true},
    {"foldAll", "Fold &All", &MoveCommands::foldAll, "", true},
    {"unfoldAll", "&Unfold All", &MoveCommands::unfoldAll, "", true},
};

MoveCommands::MoveCommands(IniTextEdit& text, BlockOutline& outline)
    : QObject(&text), text_(text), outline_(outline), popup_(new JumpPopup(&text)) {
  connect(popup_, &JumpPopup::chosen, this, &MoveCommands::goTo);
}

void MoveCommands::addTo(QMenu& search, QMenu& view) {
  for (const Command& entry : kCommands) {
    QMenu& menu = entry.inView ? view : search;
    QAction* action = Named(entry.name, menu.addAction(entry.caption, this, entry.run));
    action->setShortcut(QKeySequence(QString(entry.shortcut)));
    text_.freeKey(action->shortcut());
  }
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
