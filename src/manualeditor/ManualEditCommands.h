// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMenuBar;
class QToolBar;

namespace korvane {

class BlockDuplication;
class Commands;
class Completion;
class FindBar;
class FrmManEdit;
class LiveFindings;
class MoveCommands;
class TextCommands;

// Who carries out the commands of the manual editor.
struct ManualEditTargets {
  FrmManEdit& window;
  TextCommands& text;
  MoveCommands& move;
  FindBar& find;
  LiveFindings& findings;
  Completion& completion;
  BlockDuplication& duplication;
};
void AddManualEditCommands(Commands& commands, const ManualEditTargets& targets);

// The menus and buttons show commands of the window, those for searches in all files included. They carry
// their names as objectName.
void BuildManualEditMenu(QMenuBar& bar, const Commands& commands);
// In front of what the toolbar has.
void AddManualEditButtons(QToolBar& bar, const Commands& commands);

}  // namespace korvane
