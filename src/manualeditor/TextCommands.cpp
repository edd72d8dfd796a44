// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextCommands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <Qsci/qsciscintilla.h>

#include "manualeditor/IniTextEdit.h"
#include "manualeditor/LineEdits.h"
#include "manualeditor/LineMarks.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

}  // namespace

TextCommands::TextCommands(IniTextEdit& text) : QObject(&text), text_(text) {
  text_.view().send(Sci::SCI_SETADDITIONALSELECTIONTYPING, 1);  // typing into a rectangle fills all its lines
}

void TextCommands::cut() {
  QGuiApplication::clipboard()->clear();
  copy();
  deleteSelection();
}

void TextCommands::copy() {
  QGuiApplication::clipboard()->setText(text_.selectedText());
}

void TextCommands::paste() {
  text_.replaceSelection(QGuiApplication::clipboard()->text());
}

void TextCommands::deleteSelection() {
  text_.replaceSelection({});
}

void TextCommands::selectAll() {
  text_.selectAll();
}

void TextCommands::send(unsigned message) {
  text_.view().send(message);
}

void TextCommands::editLines(const std::function<std::string(std::string_view)>& edit) {
  const TextSpan lines = text_.selectedLines();
  const std::string before(text_.utf8().substr(static_cast<std::size_t>(lines.from),
                                               static_cast<std::size_t>(lines.to - lines.from)));
  const std::string after = edit(before);
  if (after != before) text_.replaceSpan(lines, after);
}

void TextCommands::toggleComment() {
  editLines(CommentToggled);
}

void TextCommands::duplicate() {
  send(Sci::SCI_SELECTIONDUPLICATE);
}

void TextCommands::moveUp() {
  send(Sci::SCI_MOVESELECTEDLINESUP);
}

void TextCommands::moveDown() {
  send(Sci::SCI_MOVESELECTEDLINESDOWN);
}

// A tab where nothing is selected would go into the middle of the line.
void TextCommands::indent() {
  const TextSpan lines = text_.selectedLines();
  if (text_.selection().from == text_.selection().to) text_.select(lines);
  send(Sci::SCI_TAB);
}

void TextCommands::outdent() {
  send(Sci::SCI_BACKTAB);
}

void TextCommands::trim() {
  editLines(Trimmed);
}

void TextCommands::align() {
  const auto tabWidth = static_cast<std::size_t>(text_.view().send(Sci::SCI_GETTABWIDTH));
  editLines([tabWidth](std::string_view lines) { return Aligned(lines, tabWidth); });
}

void TextCommands::toggleMark() {
  text_.lineMarks().toggle(text_.cursorLine());
}

void TextCommands::nextMark() {
  goToMark(text_.lineMarks().next(text_.cursorLine()));
}

void TextCommands::previousMark() {
  goToMark(text_.lineMarks().previous(text_.cursorLine()));
}

void TextCommands::goToMark(int line) {
  if (line < 0) return;
  const auto start = text_.view().send(Sci::SCI_POSITIONFROMLINE, line);
  text_.select({start, start});
}

void TextCommands::zoomIn() {
  send(Sci::SCI_ZOOMIN);
}

void TextCommands::zoomOut() {
  send(Sci::SCI_ZOOMOUT);
}

void TextCommands::zoomNormal() {
  text_.view().send(Sci::SCI_SETZOOM, 0);
}

void TextCommands::showBlanks() {
  const bool shown = text_.view().send(Sci::SCI_GETVIEWWS) != Sci::SCWS_INVISIBLE;
  text_.view().send(Sci::SCI_SETVIEWWS, shown ? Sci::SCWS_INVISIBLE : Sci::SCWS_VISIBLEALWAYS);
}

void TextCommands::wrap() {
  const bool wrapped = text_.view().send(Sci::SCI_GETWRAPMODE) != Sci::SC_WRAP_NONE;
  text_.view().send(Sci::SCI_SETWRAPMODE, wrapped ? Sci::SC_WRAP_NONE : Sci::SC_WRAP_WORD);
}

}  // namespace korvane
