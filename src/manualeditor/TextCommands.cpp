// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextCommands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <Qsci/qsciscintilla.h>

#include <algorithm>

#include "manualeditor/IniTextEdit.h"
#include "manualeditor/LineEdits.h"
#include "manualeditor/LineMarks.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr qsizetype kLookAround = 4096;  // bytes in which it is seen how lines are indented

// Where a place of the one text stands in the other: before what differs it stays, else it moves with the
// end.
qsizetype PlaceAfter(std::string_view before, std::string_view after, qsizetype place) {
  const std::size_t shorter = std::min(before.size(), after.size());
  const auto differs = std::ranges::mismatch(before.substr(0, shorter), after.substr(0, shorter)).in1;
  if (place <= differs - before.begin()) return place;
  return std::max<qsizetype>(
      place + static_cast<qsizetype>(after.size()) - static_cast<qsizetype>(before.size()), 0);
}

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
  if (after == before) return;
  const TextSpan selected = text_.selection();
  text_.replaceSpan(lines, after);
  if (selected.from != selected.to) return;
  const qsizetype place = lines.from + PlaceAfter(before, after, selected.from - lines.from);
  text_.select({place, place});
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

// The control's own commands would put a tab in the place of what is selected in one line.
void TextCommands::indent() {
  editLines([this](std::string_view lines) { return Indented(lines, indentHere()); });
}

void TextCommands::outdent() {
  editLines([this](std::string_view lines) { return Outdented(lines, indentHere(), tabWidth()); });
}

// As the lines around are.
std::string_view TextCommands::indentHere() const {
  const TextSpan lines = text_.selectedLines();
  const auto from = static_cast<std::size_t>(std::max<qsizetype>(lines.from - kLookAround, 0));
  const auto size = static_cast<std::size_t>(lines.to + kLookAround) - from;
  std::string_view around = text_.utf8().substr(from, size);
  if (from > 0) around.remove_prefix(std::min(around.find('\n'), around.size()));  // a part of a line
  return IndentOf(around);
}

std::size_t TextCommands::tabWidth() const {
  return static_cast<std::size_t>(text_.view().send(Sci::SCI_GETTABWIDTH));
}

void TextCommands::trim() {
  editLines(Trimmed);
}

void TextCommands::align() {
  editLines([this](std::string_view lines) { return Aligned(lines, tabWidth()); });
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
