// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "manualeditor/BlockOutline.h"
#include "manualeditor/JumpPopup.h"

namespace korvane {

class IniTextEdit;

// The commands that move through the text: to a line, to a block, from a header to its End, and folding.
class MoveCommands : public QObject {
  Q_OBJECT

 public:
  MoveCommands(IniTextEdit& text, BlockOutline& outline);

  void goToLine();
  void goToBlock();
  void jumpToMatch();
  void toggleFold();
  void foldAll();
  void unfoldAll();

 private:
  void goTo(int line);

  IniTextEdit& text_;
  BlockOutline& outline_;
  JumpPopup* popup_;
};

}  // namespace korvane
