// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/ManualEditCommands.h"

#include <QMenuBar>
#include <QToolBar>

#include <array>

#include "app/Commands.h"
#include "controls/Icons.h"
#include "manualeditor/BlockDuplication.h"
#include "manualeditor/Completion.h"
#include "manualeditor/FindBar.h"
#include "manualeditor/FrmManEdit.h"
#include "manualeditor/LiveFindings.h"
#include "manualeditor/MoveCommands.h"
#include "manualeditor/TextCommands.h"

namespace korvane {

namespace {

using Window = Command<FrmManEdit>;
using Text = Command<TextCommands>;
using Move = Command<MoveCommands>;
using Find = Command<FindBar>;
using ProblemCommand = Command<LiveFindings>;

// Undo and Redo show a message here; their usual keys belong to the text.
constexpr std::array kWindowCommands = {
    Window{"MnuSave", "&Save", &FrmManEdit::save, "Ctrl+S"},
    Window{"extractText", "&Extract to Data\\INI...", &FrmManEdit::askForExtract},
    Window{"MnuExit", "E&xit", &FrmManEdit::exitCommand},
    Window{"reload", "&Reload", &FrmManEdit::reload, "F5"},
    Window{"closeTab", "&Close Tab", &FrmManEdit::closeTab, "Ctrl+W"},
    Window{"nextTab", "Next &Tab", &FrmManEdit::showNextTab, "Ctrl+Tab"},
    Window{"previousTab", "Pre&vious Tab", &FrmManEdit::showPreviousTab, "Ctrl+Shift+Tab"},
    Window{"MnuUndo", "&Undo", &FrmManEdit::tellAboutUndo},
    Window{"MnuRedo", "&Redo", &FrmManEdit::tellAboutUndo},
    Window{"MnuReplace", "R&eplace...", &FrmManEdit::showReplace, "Ctrl+H"},
    Window{"MnuFont", "&Fonts", &FrmManEdit::chooseFont},
};

constexpr std::array kTextCommands = {
    Text{"MnuCut", "Cu&t", &TextCommands::cut},
    Text{"MnuCopy", "&Copy", &TextCommands::copy},
    Text{"MnuPaste", "&Paste", &TextCommands::paste},
    Text{"MnuDelete", "&Delete", &TextCommands::deleteSelection},
    Text{"MnuSelAll", "Select &All", &TextCommands::selectAll},
    Text{"toggleComment", "Toggle &Comment", &TextCommands::toggleComment, "Ctrl+/"},
    Text{"duplicateLines", "&Duplicate", &TextCommands::duplicate, "Ctrl+D"},
    Text{"moveLinesUp", "Move Lines &Up", &TextCommands::moveUp, "Alt+Up"},
    Text{"moveLinesDown", "Move &Lines Down", &TextCommands::moveDown, "Alt+Down"},
    Text{"indentLines", "&Indent", &TextCommands::indent, "Ctrl+]"},
    Text{"outdentLines", "&Outdent", &TextCommands::outdent, "Ctrl+["},
    Text{"trimLines", "&Trim Trailing Blanks", &TextCommands::trim},
    Text{"alignLines", "&Align \"=\"", &TextCommands::align},
    Text{"toggleMark", "Set or Clear &Mark", &TextCommands::toggleMark, "Ctrl+F2"},
    Text{"nextMark", "&Next Mark", &TextCommands::nextMark, "F2"},
    Text{"previousMark", "&Previous Mark", &TextCommands::previousMark, "Shift+F2"},
    Text{"zoomIn", "Zoom &In", &TextCommands::zoomIn, "Ctrl++"},
    Text{"zoomOut", "Zoom &Out", &TextCommands::zoomOut, "Ctrl+-"},
    Text{"zoomNormal", "&Normal Size", &TextCommands::zoomNormal, "Ctrl+0"},
    Text{"showBlanks", "Show &Blanks and Tabs", &TextCommands::showBlanks, "", true},
    Text{"wrapLines", "&Wrap Lines", &TextCommands::wrap, "", true},
};

constexpr std::array kMoveCommands = {
    Move{"goToLine", "Go to &Line...", &MoveCommands::goToLine, "Ctrl+G"},
    Move{"goToBlock", "Go to &Block...", &MoveCommands::goToBlock, "Ctrl+R"},
    Move{"jumpToMatch", "&Header or End", &MoveCommands::jumpToMatch, "Ctrl+B"},
    Move{"toggleFold", "&Fold or Unfold Block", &MoveCommands::toggleFold, "Ctrl+Shift+["},
    Move{"foldAll", "Fold &All", &MoveCommands::foldAll},
    Move{"unfoldAll", "&Unfold All", &MoveCommands::unfoldAll},
};

constexpr std::array kFindCommands = {
    Find{"MnuFind", "&Find...", &FindBar::focus, "Ctrl+F"},
    Find{"MnuFindNext", "Find &Next", &FindBar::findNext, "F3"},
    Find{"findPrevious", "Find &Previous", &FindBar::findPrevious, "Shift+F3"},
};

constexpr std::array kProblemCommands = {
    ProblemCommand{"nextProblem", "Next P&roblem", &LiveFindings::goToNext, "F8"},
    ProblemCommand{"previousProblem", "Previous Proble&m", &LiveFindings::goToPrevious, "Shift+F8"},
    ProblemCommand{"applySuggestion", "Appl&y Suggestion", &LiveFindings::applySuggestion, "Ctrl+."},
};

constexpr std::array kCompletionCommands = {
    Command<Completion>{"completeWord", "Complete &Word", &Completion::ask, "Ctrl+Space"},
};

constexpr std::array kDuplicationCommands = {
    Command<BlockDuplication>{"duplicateBlock", "Duplicate &Block...", &BlockDuplication::ask,
                              "Ctrl+Shift+D"},
};

constexpr MenuRow kSeparator{1};

constexpr std::array kMenuBar = {
    MenuRow{0, "MnuFile", "&File"},
    MenuRow{1, "MnuSave"},
    MenuRow{1, "extractText"},
    MenuRow{1, "showHistory"},
    kSeparator,
    MenuRow{1, "MnuExit"},
    kSeparator,
    MenuRow{1, "reload"},
    MenuRow{1, "menuRecent", "Recent &Files"},
    MenuRow{1, "closeTab"},
    MenuRow{0, "MnuEdit", "&Edit"},
    MenuRow{1, "MnuUndo"},
    MenuRow{1, "MnuRedo"},
    kSeparator,
    MenuRow{1, "MnuCut"},
    MenuRow{1, "MnuCopy"},
    MenuRow{1, "MnuPaste"},
    MenuRow{1, "MnuDelete"},
    kSeparator,
    MenuRow{1, "MnuFind"},
    MenuRow{1, "MnuFindNext"},
    MenuRow{1, "MnuReplace"},
    kSeparator,
    MenuRow{1, "MnuSelAll"},
    MenuRow{0, "MnuFormat", "F&ormat"},
    MenuRow{1, "MnuFont"},
    MenuRow{0, "menuSearch", "&Search"},
    MenuRow{1, "findAnything"},
    MenuRow{1, "goToDefinition"},
    MenuRow{1, "findUses"},
    MenuRow{1, "namesUsed"},
    MenuRow{1, "findInFiles"},
    MenuRow{1, "checkData"},
    MenuRow{1, "compareOriginal"},
    kSeparator,
    MenuRow{1, "goBack"},
    MenuRow{1, "goForward"},
    kSeparator,
    MenuRow{1, "findPrevious"},
    MenuRow{1, "goToLine"},
    MenuRow{1, "goToBlock"},
    MenuRow{1, "jumpToMatch"},
    kSeparator,
    MenuRow{1, "nextProblem"},
    MenuRow{1, "previousProblem"},
    MenuRow{1, "applySuggestion"},
    MenuRow{0, "menuText", "&Text"},
    MenuRow{1, "completeWord"},
    kSeparator,
    MenuRow{1, "toggleComment"},
    MenuRow{1, "duplicateLines"},
    MenuRow{1, "duplicateBlock"},
    MenuRow{1, "moveLinesUp"},
    MenuRow{1, "moveLinesDown"},
    kSeparator,
    MenuRow{1, "indentLines"},
    MenuRow{1, "outdentLines"},
    MenuRow{1, "trimLines"},
    MenuRow{1, "alignLines"},
    kSeparator,
    MenuRow{1, "toggleMark"},
    MenuRow{1, "nextMark"},
    MenuRow{1, "previousMark"},
    MenuRow{0, "menuView", "&View"},
    MenuRow{1, "showBlocks"},
    MenuRow{1, "zoomIn"},
    MenuRow{1, "zoomOut"},
    MenuRow{1, "zoomNormal"},
    kSeparator,
    MenuRow{1, "showBlanks"},
    MenuRow{1, "wrapLines"},
    kSeparator,
    MenuRow{1, "toggleFold"},
    MenuRow{1, "foldAll"},
    MenuRow{1, "unfoldAll"},
    kSeparator,
    MenuRow{1, "nextTab"},
    MenuRow{1, "previousTab"},
};

struct Button {
  const char* key;
  const char* command;
};
constexpr std::array kButtons = {Button{"Save", "MnuSave"}, Button{"Cut", "MnuCut"},
                                 Button{"Copy", "MnuCopy"}, Button{"Paste", "MnuPaste"},
                                 Button{"Undo", "MnuUndo"}, Button{"Redo", "MnuRedo"}};

}  // namespace

void AddManualEditCommands(Commands& commands, const ManualEditTargets& targets) {
  commands.add<FrmManEdit>(kWindowCommands, targets.window);
  commands.add<TextCommands>(kTextCommands, targets.text);
  commands.add<MoveCommands>(kMoveCommands, targets.move);
  commands.add<FindBar>(kFindCommands, targets.find);
  commands.add<LiveFindings>(kProblemCommands, targets.findings);
  commands.add<Completion>(kCompletionCommands, targets.completion);
  commands.add<BlockDuplication>(kDuplicationCommands, targets.duplication);
}

void BuildManualEditMenu(QMenuBar& bar, const Commands& commands) {
  FillMenuBar(bar, commands, kMenuBar);
}

void AddManualEditButtons(QToolBar& bar, const Commands& commands) {
  QAction* before = bar.insertSeparator(bar.actions().value(0));
  for (const auto& [key, command] : kButtons) {
    auto* button = new QAction(ThemeIcon(QString(key).toLower()), key, &bar);
    button->setObjectName(key);
    button->setToolTip(key);
    bar.insertAction(before, button);
    QObject::connect(button, &QAction::triggered, &commands.action(command), &QAction::trigger);
  }
}

}  // namespace korvane
