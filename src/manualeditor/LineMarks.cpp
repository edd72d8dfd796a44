// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/LineMarks.h"

#include <QPalette>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>
#include <utility>

#include "textview/ScrollMarks.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kSymbolMargin = 1;
constexpr int kChangeMargin = 2;
constexpr int kSymbolWidth = 14;  // pixels
constexpr int kChangeWidth = 7;
constexpr int kInserts = Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_BEFOREINSERT;
constexpr int kDeletes = Sci::SC_MOD_DELETETEXT | Sci::SC_MOD_BEFOREDELETE;

enum Marker { userMark = 1, changedMarker, savedMarker };
struct MarkerStyle {
  Marker marker;
  int symbol;  // also tells them apart for whom colours do not
  QRgb onLight;
  QRgb onDark;
  bool atScrollBar;
};
constexpr std::array kMarkerStyles = {
    MarkerStyle{userMark, Sci::SC_MARK_BOOKMARK, 0xFF2B6CB0, 0xFF8AB4F0, true},
    MarkerStyle{changedMarker, Sci::SC_MARK_FULLRECT, 0xFFC77700, 0xFFE0A030, true},
    MarkerStyle{savedMarker, Sci::SC_MARK_LEFTRECT, 0xFF3E8E41, 0xFF7FBF7F, false},
};
constexpr int kChangeMarkers = 1 << changedMarker | 1 << savedMarker;
constexpr int kScrollKinds = 100;    // apart from those of text marks
constexpr int kMarkedAtOnce = 2000;  // lines, so that no key has to wait

QColor ColourOf(const MarkerStyle& style, const QPalette& palette) {
  const bool dark = palette.color(QPalette::Active, QPalette::Base).lightness() <
                    palette.color(QPalette::Active, QPalette::Text).lightness();
  return QColor(dark ? style.onDark : style.onLight);
}

}  // namespace

LineMarks::LineMarks(const ScintillaView& view, ScrollMarks& scrollMarks)
    : QObject(&view.control()), view_(view), scrollMarks_(scrollMarks) {
  view_.control().setMarginWidth(kSymbolMargin, kSymbolWidth);
  view_.control().setMarginWidth(kChangeMargin, kChangeWidth);
  view_.send(Sci::SCI_SETMARGINMASKN, kSymbolMargin, 1 << userMark);
  view_.send(Sci::SCI_SETMARGINMASKN, kChangeMargin, kChangeMarkers);
  for (const MarkerStyle& style : kMarkerStyles)
    view_.send(Sci::SCI_MARKERDEFINE, style.marker, style.symbol);
  connect(&view_.control(), &Sci::SCN_MODIFIED, this,
          [this](int position, int kind, const char*, int length) { modified(position, kind, length); });
  markSoon_.setSingleShot(true);
  connect(&markSoon_, &QTimer::timeout, this, &LineMarks::markSome);
  connect(&view_.control(), &Sci::SCN_SAVEPOINTREACHED, this, &LineMarks::undone);
}

void LineMarks::beginText() {
  loading_ = true;
  view_.send(Sci::SCI_MARKERDELETEALL, -1);
}

void LineMarks::endText() {
  loading_ = false;
  forgetEdits();
  showAtScrollBar();
}

void LineMarks::leaveText() {
  markSoon_.stop();
  markEdits();
}

void LineMarks::enterText() {
  showAtScrollBar();
}

void LineMarks::saved() {
  markEdits();
  saving_ = true;
  view_.send(Sci::SCI_SETSAVEPOINT);
  saving_ = false;
  for (const int line : linesOf(changedMarker)) {
    view_.send(Sci::SCI_MARKERADD, line, savedMarker);
    while (isChanged(line))
      view_.send(Sci::SCI_MARKERDELETE, line, changedMarker);  // lines may have been joined
  }
  showAtScrollBar();
}

void LineMarks::applyColours(const QPalette& palette) {
  for (const MarkerStyle& style : kMarkerStyles) {
    const QColor colour = ColourOf(style, palette);
    for (const auto message : {Sci::SCI_MARKERSETFORE, Sci::SCI_MARKERSETBACK}) {
      view_.control().SendScintilla(message, static_cast<unsigned long>(style.marker), colour);
    }
  }
  showAtScrollBar();
}

void LineMarks::toggle(int line) {
  const bool marked = (view_.send(Sci::SCI_MARKERGET, line) & (1 << userMark)) != 0;
  view_.send(marked ? Sci::SCI_MARKERDELETE : Sci::SCI_MARKERADD, line, userMark);
  showAtScrollBar();
}

int LineMarks::next(int line) const {
  const auto found = view_.send(Sci::SCI_MARKERNEXT, line + 1, 1 << userMark);
  return static_cast<int>(found >= 0 ? found : view_.send(Sci::SCI_MARKERNEXT, 0, 1 << userMark));
}

int LineMarks::previous(int line) const {
  const auto last = view_.send(Sci::SCI_GETLINECOUNT) - 1;
  const auto found = line > 0 ? view_.send(Sci::SCI_MARKERPREVIOUS, line - 1, 1 << userMark) : -1;
  return static_cast<int>(found >= 0 ? found : view_.send(Sci::SCI_MARKERPREVIOUS, last, 1 << userMark));
}

// A large text tells of its edits before it makes them: how many lines came is seen at the next edit, or when
// the lines are marked in the next turn.
void LineMarks::modified(int position, int kind, int length) {
  if (loading_ || (kind & (kInserts | kDeletes)) == 0) return;
  endInsertion();
  const int line = lineAt(position);
  if ((kind & kInserts) != 0) {
    insertion_ = TextSpan{position, position + length};
  } else if ((kind & Sci::SC_MOD_BEFOREDELETE) != 0) {
    shift(line, line - lineAt(position + length));
  }
  edits_.push_back({line, 0});
  if (!markSoon_.isActive()) markSoon_.start();
}

void LineMarks::endInsertion() {
  if (!insertion_) return;
  const int line = lineAt(insertion_->from);
  const int added = lineAt(insertion_->to) - line;
  insertion_.reset();
  Edit& edit = edits_.back();
  shift(line, added);
  edit.added = added;
}

// Earlier edits move, and grow or shrink, with the lines that came or went behind `line`.
void LineMarks::shift(int line, int lines) {
  if (lines == 0) return;
  for (Edit& edit : edits_) {
    if (edit.line > line) {
      edit.line = std::max(line, edit.line + lines);
    } else if (edit.line + edit.added > line) {
      edit.added = std::max(line - edit.line, edit.added + lines);
    }
  }
}

int LineMarks::lineAt(qsizetype position) const {
  return static_cast<int>(view_.send(Sci::SCI_LINEFROMPOSITION, position));
}

void LineMarks::markEdits() {
  while (!edits_.empty()) markSome();
}

void LineMarks::markSome() {
  markSoon_.stop();
  endInsertion();
  for (int left = kMarkedAtOnce; left > 0 && !edits_.empty();) {
    Edit& edit = edits_.back();
    const int end = edit.line + std::min(edit.added + 1, left);
    left -= end - edit.line;
    markLines(edit.line, end);
    edit.added -= end - edit.line;
    edit.line = end;
    if (edit.added < 0) edits_.pop_back();
  }
  if (!edits_.empty()) return markSoon_.start();
  if (std::exchange(added_, false)) showAtScrollBar();
}

bool LineMarks::isChanged(int line) const {
  return (view_.send(Sci::SCI_MARKERGET, line) & (1 << changedMarker)) != 0;
}

void LineMarks::markLines(int from, int to) {
  for (int line = from; line < to; ++line) {
    if (isChanged(line)) continue;
    view_.send(Sci::SCI_MARKERADD, line, changedMarker);
    added_ = true;
  }
}

// Undone back to what is in the file.
void LineMarks::undone() {
  if (saving_ || loading_) return;
  forgetEdits();
  clear(changedMarker);
  showAtScrollBar();
}

void LineMarks::forgetEdits() {
  markSoon_.stop();
  insertion_.reset();
  edits_.clear();
  added_ = false;
}

void LineMarks::clear(int marker) {
  view_.send(Sci::SCI_MARKERDELETEALL, marker);
}

std::vector<int> LineMarks::linesOf(int marker) const {
  std::vector<int> lines;
  for (auto line = view_.send(Sci::SCI_MARKERNEXT, 0, 1 << marker); line >= 0;
       line = view_.send(Sci::SCI_MARKERNEXT, line + 1, 1 << marker)) {
    lines.push_back(static_cast<int>(line));
  }
  return lines;
}

void LineMarks::showAtScrollBar() {
  scrollMarks_.setLineCount(static_cast<int>(view_.send(Sci::SCI_GETLINECOUNT)));
  for (const MarkerStyle& style : kMarkerStyles) {
    if (!style.atScrollBar) continue;
    scrollMarks_.setLines(kScrollKinds + style.marker, ColourOf(style, view_.control().palette()),
                          linesOf(style.marker));
  }
}

}  // namespace korvane
