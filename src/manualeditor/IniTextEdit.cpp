// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/IniTextEdit.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QMenu>
#include <QScrollBar>
#include <QVBoxLayout>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>

#include "manualeditor/FindingMarks.h"
#include "manualeditor/LineMarks.h"
#include "manualeditor/TextDocument.h"
#include "textview/ScrollMarks.h"
#include "textview/TextLook.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kNumberMargin = 0;
constexpr int kFoldMargin = 3;
constexpr int kTextMargin = 4;  // pixels between the line numbers and the text
constexpr int kLinesAround = 4;
constexpr int kFoldShare = 70;  // of the text colour in the lines of the folds, in percent
constexpr std::size_t kMostPieces =
    5000;  // that a replacement is made of; each is told to all who follow edits
constexpr int kStrikeIndicator = 20;
// Above this size edits are not announced to screen readers one by one: for each, the control counts every
// character of the text before it. `edited()` is still emitted.
constexpr std::size_t kAnnounced = 1 << 17;
constexpr int kEdits = Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_DELETETEXT;
constexpr int kEditsToCome = Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE;

struct MarkStyle {
  TextMark mark;
  int indicator;  // of the control
  int style;
  QRgb onLight;
  QRgb onDark;
  int alphaOnLight;  // of the filling, of 255
  int alphaOnDark;
  bool atScrollBar;
};
constexpr std::array kMarkStyles = {
    MarkStyle{TextMark::hit, 21, Sci::INDIC_ROUNDBOX, 0xFFE08A00, 0xFFFFB84D, 60, 35, true},
    MarkStyle{TextMark::match, 23, Sci::INDIC_FULLBOX, 0xFF7D4A94, 0xFFC9A0DC, 40, 32, false},
    MarkStyle{TextMark::scope, 22, Sci::INDIC_FULLBOX, 0xFF2B6CB0, 0xFF8AB4F0, 20, 20, false},
};

struct ChangedPiece {
  qsizetype from;  // of the text before
  qsizetype to;
  std::string_view text;  // in its place
};

std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
  text.remove_prefix(line.size());
  return line;
}

// The end of a line stays with it, so that the line is the same one to its marks.
ChangedPiece PieceOf(qsizetype from, std::string_view before, std::string_view after) {
  const auto bothEndIn = [&](char end) { return before.ends_with(end) && after.ends_with(end); };
  while (bothEndIn('\n') || bothEndIn('\r')) {
    before.remove_suffix(1);
    after.remove_suffix(1);
  }
  return {from, from + static_cast<qsizetype>(before.size()), after};
}

// The lines that are other ones; all as one piece where lines came or went, or where they are too many.
std::vector<ChangedPiece> ChangedPieces(std::string_view now, std::string_view next) {
  const std::vector<ChangedPiece> all{{0, static_cast<qsizetype>(now.size()), next}};
  std::vector<ChangedPiece> pieces;
  qsizetype from = 0;
  while (!now.empty() && !next.empty()) {
    const std::string_view before = TakeLine(now);
    const std::string_view after = TakeLine(next);
    if (before != after) pieces.push_back(PieceOf(from, before, after));
    from += static_cast<qsizetype>(before.size());
  }
  const bool sameLines = now.empty() && next.empty() && pieces.size() <= kMostPieces;
  return sameLines ? pieces : all;
}

const MarkStyle& StyleOf(TextMark mark) {
  return *std::find_if(kMarkStyles.begin(), kMarkStyles.end(),
                       [mark](const MarkStyle& style) { return style.mark == mark; });
}

}  // namespace

IniTextEdit::IniTextEdit(QWidget* parent)
    : QWidget(parent),
      text_(new QsciScintilla(this)),
      view_(*text_),
      look_(new TextLook(view_)),
      scrollMarks_(new ScrollMarks(*text_->verticalScrollBar())),
      lineMarks_(new LineMarks(view_, *scrollMarks_)),
      findingMarks_(new FindingMarks(view_, *scrollMarks_)),
      font_(QFontDatabase::systemFont(QFontDatabase::FixedFont)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(text_);
  setFocusProxy(text_);
  prepare();
  applyFont();
  text_->installEventFilter(this);
  text_->viewport()->installEventFilter(this);
  connect(text_, &QsciScintilla::cursorPositionChanged, this, &IniTextEdit::cursorMayHaveMoved);
  connect(text_, &Sci::SCEN_CHANGE, this, [this] {
    if (font_.strikeOut()) strikeOut();
    Q_EMIT edited();
  });
  connect(text_, &QsciScintilla::modificationChanged, this, &IniTextEdit::modificationChanged);
  connect(text_, &Sci::SCN_ZOOM, this, &IniTextEdit::fitNumberMargin);
}

void IniTextEdit::prepare() {
  text_->setAccessibleName("Text");
  prepareDocument();
  text_->setCaretLineVisible(true);
  text_->setMarginLineNumbers(kNumberMargin, true);
  send(Sci::SCI_SETMARGINLEFT, 0, kTextMargin);
  send(Sci::SCI_SETSCROLLWIDTH, 1);
  send(Sci::SCI_SETSCROLLWIDTHTRACKING, 1);
  send(Sci::SCI_SETPASTECONVERTENDINGS, 1);
  send(Sci::SCI_INDICSETSTYLE, kStrikeIndicator, Sci::INDIC_STRIKE);
  text_->setFolding(QsciScintilla::BoxedTreeFoldStyle, kFoldMargin);
  send(Sci::SCI_SETAUTOMATICFOLD, Sci::SC_AUTOMATICFOLD_SHOW | Sci::SC_AUTOMATICFOLD_CHANGE);
  for (const MarkStyle& style : kMarkStyles) {
    send(Sci::SCI_INDICSETSTYLE, style.indicator, style.style);
    send(Sci::SCI_INDICSETUNDER, style.indicator, 1);
  }
}

// What the control keeps with each text.
void IniTextEdit::prepareDocument() {
  text_->setUtf8(true);
  text_->setEolMode(QsciScintilla::EolWindows);
  text_->setTabWidth(4);
  send(Sci::SCI_SETINDICATORCURRENT, kStrikeIndicator);
}

void IniTextEdit::show(TextDocument& document) {
  if (shows(document)) return;
  send(Sci::SCI_AUTOCCANCEL);
  lineMarks_->leaveText();
  FindingMarks::Shown findings = findingMarks_->exchange(std::move(document.findings_));
  if (shown_ != nullptr) {
    shown_->findings_ = std::move(findings);
    shown_->leave(view_);
  }
  shown_ = &document;
  document.takePlace(view_);
  prepareDocument();
  announceEdits(utf8().size());
  text_->setReadOnly(text_->isReadOnly());  // the control's input methods too
  document.enter(view_);
  strikeOut();
  fitNumberMargin();
  scrollMarks_->clear();
  lineMarks_->enterText();
  findingMarks_->enterText();
  Q_EMIT documentShown();
  Q_EMIT cursorMayHaveMoved();
}

void IniTextEdit::forget(const TextDocument& document) {
  if (shows(document)) shown_ = nullptr;
}

void IniTextEdit::announceEdits(std::size_t size) {
  send(Sci::SCI_SETMODEVENTMASK, size > kAnnounced ? kEditsToCome : kEdits);
}

void IniTextEdit::fitNumberMargin() {
  text_->setMarginWidth(kNumberMargin, QString::number(std::max(lineCount(), 999)) + ' ');
}

void IniTextEdit::setBytes(std::string_view bytes) {
  setUtf8(Utf8OfFile(bytes));
}

void IniTextEdit::setUtf8(const QByteArray& utf8) {
  lineMarks_->beginText();
  send(Sci::SCI_SETUNDOCOLLECTION, 0);
  announceEdits(static_cast<std::size_t>(utf8.size()));
  send(Sci::SCI_CLEARALL);
  sendText(Sci::SCI_ADDTEXT, utf8.size(), utf8.constData());
  send(Sci::SCI_SETUNDOCOLLECTION, 1);
  send(Sci::SCI_EMPTYUNDOBUFFER);
  setUnmodified();
  lineMarks_->endText();
  fitNumberMargin();
  moveToStart();
}

void IniTextEdit::setBytesAgain(std::string_view bytes) {
  const qsizetype topLine = send(Sci::SCI_GETFIRSTVISIBLELINE);
  const Place cursor = placeOf(send(Sci::SCI_GETCURRENTPOS));
  setBytes(bytes);
  goTo(cursor.line, cursor.column, 0);
  send(Sci::SCI_SETFIRSTVISIBLELINE, topLine);
}

FileBytesOfText IniTextEdit::fileBytes() const {
  return FileOfUtf8(utf8());
}

std::string IniTextEdit::legibleBytes() const {
  return LegibleBytesOfUtf8(utf8());
}

void IniTextEdit::setReadOnly(bool readOnly) {
  text_->setReadOnly(readOnly);
}

bool IniTextEdit::isModified() const {
  return send(Sci::SCI_GETMODIFY) != 0;  // the control's own flag knows only one document
}

void IniTextEdit::setUnmodified() {
  lineMarks_->saved();
}

int IniTextEdit::lineCount() const {
  return static_cast<int>(send(Sci::SCI_GETLINECOUNT));
}

int IniTextEdit::cursorLine() const {
  return placeOf(cursor()).line;
}

qsizetype IniTextEdit::cursor() const {
  return send(Sci::SCI_GETCURRENTPOS);
}

IniTextEdit::Place IniTextEdit::placeOf(qsizetype position) const {
  const qsizetype line = send(Sci::SCI_LINEFROMPOSITION, position);
  const qsizetype start = send(Sci::SCI_POSITIONFROMLINE, line);
  const qsizetype column = send(Sci::SCI_COUNTCHARACTERS, start, position);
  return {static_cast<int>(line), static_cast<int>(column)};
}

void IniTextEdit::moveToStart() {
  select({});
}

void IniTextEdit::goTo(int line, int column, int length) {
  const TextSpan span = spanOf(line, column, length);
  const qsizetype row = send(Sci::SCI_VISIBLEFROMDOCLINE, send(Sci::SCI_LINEFROMPOSITION, span.from));
  const qsizetype top = send(Sci::SCI_GETFIRSTVISIBLELINE);
  const qsizetype rows = send(Sci::SCI_LINESONSCREEN);
  select(span);
  // What is gone to stands in the upper part, with what follows it in sight.
  if (row < top || row >= top + rows)
    send(Sci::SCI_SETFIRSTVISIBLELINE, std::max<qsizetype>(row - rows / 4, 0));
}

TextSpan IniTextEdit::spanOf(int line, int column, int length) const {
  line = std::min(line, lineCount() - 1);
  const qsizetype end = send(Sci::SCI_GETLINEENDPOSITION, line);
  const auto advanced = [&](qsizetype from, int characters) {
    const qsizetype to = send(Sci::SCI_POSITIONRELATIVE, from, std::max(characters, 0));
    return to == 0 || to > end ? end : to;  // 0: behind the text's end
  };
  const qsizetype start = send(Sci::SCI_POSITIONFROMLINE, line);
  const qsizetype from = column > 0 ? advanced(start, column) : start;
  return {from, length > 0 ? advanced(from, length) : from};
}

void IniTextEdit::keepInSight(int line) {
  const qsizetype first = send(Sci::SCI_VISIBLEFROMDOCLINE, line);
  const qsizetype cursor = send(Sci::SCI_VISIBLEFROMDOCLINE, cursorLine());
  const bool fits = cursor - first < send(Sci::SCI_LINESONSCREEN);
  if (fits && first < send(Sci::SCI_GETFIRSTVISIBLELINE)) send(Sci::SCI_SETFIRSTVISIBLELINE, first);
}

void IniTextEdit::selectCharacterAt(qsizetype position) {
  select({position, send(Sci::SCI_POSITIONAFTER, position)});
}

void IniTextEdit::selectAll() {
  text_->selectAll();
  Q_EMIT cursorMayHaveMoved();
}

// The selection comes into view with some lines around it; the user's own moves go up to the edge.
void IniTextEdit::select(TextSpan span) {
  for (const qsizetype end : {span.from, span.to}) {
    send(Sci::SCI_ENSUREVISIBLE, send(Sci::SCI_LINEFROMPOSITION, end));  // it may be folded
  }
  send(Sci::SCI_SETYCARETPOLICY, Sci::CARET_SLOP | Sci::CARET_STRICT | Sci::CARET_EVEN, kLinesAround);
  send(Sci::SCI_SETSEL, span.from, span.to);
  send(Sci::SCI_SETYCARETPOLICY, Sci::CARET_EVEN);
  Q_EMIT cursorMayHaveMoved();
}

QString IniTextEdit::wordAtCursor() const {
  const QString selected = selectedText().trimmed();
  if (!selected.isEmpty()) return selected.contains('\n') ? QString() : selected;
  constexpr std::string_view kBounds = " \t\r\n=;,";
  const std::string_view text = utf8();
  const auto cursor = static_cast<std::size_t>(send(Sci::SCI_GETCURRENTPOS));
  const std::size_t before = cursor == 0 ? std::string_view::npos : text.find_last_of(kBounds, cursor - 1);
  const std::size_t from = before == std::string_view::npos ? 0 : before + 1;
  const std::size_t to = std::min(text.find_first_of(kBounds, cursor), text.size());
  return CharactersOfUtf8(text.substr(from, to - from));
}

QString IniTextEdit::selectedText() const {
  if (send(Sci::SCI_SELECTIONISRECTANGLE) != 0) return text_->selectedText();
  const auto start = static_cast<std::size_t>(send(Sci::SCI_GETSELECTIONSTART));
  const auto end = static_cast<std::size_t>(send(Sci::SCI_GETSELECTIONEND));
  return CharactersOfUtf8(
      utf8().substr(start, end - start));  // the control itself would give spaces for NUL bytes
}

void IniTextEdit::replaceSelection(const QString& text) {
  const QByteArray utf8 = WithCrLf(text).toUtf8();
  send(Sci::SCI_BEGINUNDOACTION);
  if (send(Sci::SCI_GETSELECTIONEMPTY) == 0) send(Sci::SCI_CLEAR);
  if (!utf8.isEmpty()) sendText(Sci::SCI_ADDTEXT, utf8.size(), utf8.constData());
  send(Sci::SCI_ENDUNDOACTION);
  send(Sci::SCI_SCROLLCARET);
  Q_EMIT cursorMayHaveMoved();
}

void IniTextEdit::setMarks(TextMark mark, const std::vector<TextSpan>& spans) {
  send(Sci::SCI_SETINDICATORCURRENT, StyleOf(mark).indicator);
  send(Sci::SCI_INDICATORCLEARRANGE, 0, send(Sci::SCI_GETLENGTH));
  for (const TextSpan& span : spans) send(Sci::SCI_INDICATORFILLRANGE, span.from, span.to - span.from);
  send(Sci::SCI_SETINDICATORCURRENT, kStrikeIndicator);
  if (StyleOf(mark).atScrollBar) showAtScrollBar(mark, spans);
}

void IniTextEdit::showAtScrollBar(TextMark mark, const std::vector<TextSpan>& spans) {
  std::vector<int> lines;
  for (const TextSpan& span : spans) {
    const int line = static_cast<int>(send(Sci::SCI_LINEFROMPOSITION, span.from));
    if (lines.empty() || lines.back() != line) lines.push_back(line);
  }
  const bool dark = palette().color(QPalette::Active, QPalette::Base).lightness() < 128;
  scrollMarks_->setLineCount(lineCount());
  scrollMarks_->setLines(static_cast<int>(mark), QColor(dark ? StyleOf(mark).onDark : StyleOf(mark).onLight),
                         std::move(lines));
}

std::optional<TextSpan> IniTextEdit::markedSpan(TextMark mark) const {
  const int indicator = StyleOf(mark).indicator;
  const bool atStart = send(Sci::SCI_INDICATORVALUEAT, indicator, 0) != 0;
  const auto from = atStart ? 0 : send(Sci::SCI_INDICATOREND, indicator, 0);
  const auto to = send(Sci::SCI_INDICATOREND, indicator, from);
  if (to <= from || send(Sci::SCI_INDICATORVALUEAT, indicator, from) == 0) return std::nullopt;
  return TextSpan{from, to};
}

TextSpan IniTextEdit::selection() const {
  return {send(Sci::SCI_GETSELECTIONSTART), send(Sci::SCI_GETSELECTIONEND)};
}

TextSpan IniTextEdit::selectedLines() const {
  const TextSpan selected = selection();
  const auto first = send(Sci::SCI_LINEFROMPOSITION, selected.from);
  auto last = send(Sci::SCI_LINEFROMPOSITION, selected.to);
  const bool endsBeforeLine = last > first && send(Sci::SCI_POSITIONFROMLINE, last) == selected.to;
  if (endsBeforeLine) --last;
  return {send(Sci::SCI_POSITIONFROMLINE, first), send(Sci::SCI_GETLINEENDPOSITION, last)};
}

void IniTextEdit::replaceSpan(TextSpan span, std::string_view utf8) {
  const auto size = static_cast<qsizetype>(utf8.size());
  send(Sci::SCI_SETTARGETRANGE, span.from, span.to);
  sendText(Sci::SCI_REPLACETARGET, size, utf8.data());
  select({span.from, span.from + size});
}

void IniTextEdit::replaceAllText(const QByteArray& utf8) {
  const qsizetype topLine = send(Sci::SCI_GETFIRSTVISIBLELINE);
  const Place cursor = placeOf(send(Sci::SCI_GETCURRENTPOS));
  const std::string_view next(utf8.constData(), static_cast<std::size_t>(utf8.size()));
  send(Sci::SCI_BEGINUNDOACTION);
  const std::vector<ChangedPiece> pieces = ChangedPieces(this->utf8(), next);
  for (std::size_t i = pieces.size(); i-- > 0;) {  // so that none moves the place of another
    const auto& [from, to, text] = pieces[i];
    send(Sci::SCI_SETTARGETRANGE, from, to);
    sendText(Sci::SCI_REPLACETARGET, static_cast<qsizetype>(text.size()), text.data());
  }
  send(Sci::SCI_ENDUNDOACTION);
  const qsizetype position = send(Sci::SCI_FINDCOLUMN, cursor.line, cursor.column);
  select({position, position});
  send(Sci::SCI_SETFIRSTVISIBLELINE, topLine);
}

// From line to line: a character of several bytes, or a line end, is never cut.
void IniTextEdit::rewrite(std::string_view utf8) {
  const std::string_view now = this->utf8();
  const std::size_t shorter = std::min(now.size(), utf8.size());
  auto same = static_cast<std::size_t>(
      std::ranges::mismatch(now.substr(0, shorter), utf8.substr(0, shorter)).in1 - now.begin());
  while (same > 0 && now[same - 1] != '\n') --same;
  std::size_t tail = 0;
  while (tail < shorter - same && now[now.size() - tail - 1] == utf8[utf8.size() - tail - 1]) ++tail;
  while (tail > 0 && tail < now.size() && now[now.size() - tail - 1] != '\n') --tail;
  const auto from = static_cast<qsizetype>(same);
  send(Sci::SCI_BEGINUNDOACTION);
  replaceSpan({from, static_cast<qsizetype>(now.size() - tail)},
              utf8.substr(same, utf8.size() - tail - same));
  send(Sci::SCI_ENDUNDOACTION);
  select({from, from});
}

// From the last one on, so that none moves the place of another.
void IniTextEdit::apply(std::span<const TextEdit> edits) {
  send(Sci::SCI_BEGINUNDOACTION);
  for (std::size_t i = edits.size(); i-- > 0;) {
    const TextEdit& edit = edits[i];
    const TextSpan span = spanOf(edit.line - 1, edit.column - 1, edit.length);
    const QByteArray utf8 = Utf8OfFile(edit.text);
    send(Sci::SCI_SETTARGETRANGE, span.from, span.to);
    sendText(Sci::SCI_REPLACETARGET, utf8.size(), utf8.constData());
  }
  send(Sci::SCI_ENDUNDOACTION);
}

void IniTextEdit::setTextFont(const QFont& font) {
  font_ = font;
  applyFont();
}

void IniTextEdit::applyFont() {
  applyColours();
  fitNumberMargin();
  strikeOut();
}

void IniTextEdit::applyColours() {
  look_->apply(font_, palette());
  text_->setIndicatorForegroundColor(palette().color(QPalette::Active, QPalette::Text), kStrikeIndicator);
  applyFoldColours();
  lineMarks_->applyColours(palette());
  findingMarks_->applyColours(palette());
  const bool dark = TextLook::isDark(palette());
  for (const MarkStyle& style : kMarkStyles) {
    text_->setIndicatorForegroundColor(QColor(dark ? style.onDark : style.onLight), style.indicator);
    send(Sci::SCI_INDICSETALPHA, style.indicator, dark ? style.alphaOnDark : style.alphaOnLight);
  }
}

// Of the lines and boxes that lead along the blocks.
void IniTextEdit::applyFoldColours() {
  const QColor paper = palette().color(QPalette::Active, QPalette::Base);
  const QColor line = TextLook::mixed(palette().color(QPalette::Active, QPalette::Text), paper, kFoldShare);
  for (unsigned long marker = Sci::SC_MARKNUM_FOLDEREND; marker <= Sci::SC_MARKNUM_FOLDEROPEN; ++marker) {
    text_->SendScintilla(Sci::SCI_MARKERSETFORE, marker, paper);
    text_->SendScintilla(Sci::SCI_MARKERSETBACK, marker, line);
  }
}

// The control's styles know no strike-through, so an indicator draws it over all of the text. After an edit
// only the new text costs anything: the control passes over what is struck out already.
void IniTextEdit::strikeOut() {
  const auto fill = font_.strikeOut() ? Sci::SCI_INDICATORFILLRANGE : Sci::SCI_INDICATORCLEARRANGE;
  send(fill, 0, send(Sci::SCI_GETLENGTH));
}

std::string_view IniTextEdit::utf8() const {
  const auto* start = static_cast<const char*>(text_->SendScintillaPtrResult(Sci::SCI_GETCHARACTERPOINTER));
  return {start, static_cast<std::size_t>(send(Sci::SCI_GETLENGTH))};
}

std::string IniTextEdit::utf8(TextSpan span) const {
  std::string text(static_cast<std::size_t>(span.to - span.from) + 1,
                   '\0');  // the control ends it with a zero
  text_->SendScintilla(Sci::SCI_GETTEXTRANGE, static_cast<long>(span.from), static_cast<long>(span.to),
                       text.data());
  text.pop_back();
  return text;
}

QRect IniTextEdit::placeOnScreen(qsizetype position) const {
  const QPoint place(static_cast<int>(send(Sci::SCI_POINTXFROMPOSITION, 0, position)),
                     static_cast<int>(send(Sci::SCI_POINTYFROMPOSITION, 0, position)));
  const auto height = static_cast<int>(send(Sci::SCI_TEXTHEIGHT));
  return {text_->viewport()->mapToGlobal(place), QSize(0, height)};
}

qsizetype IniTextEdit::send(unsigned message, qsizetype first, qsizetype second) const {
  return view_.send(message, first, second);
}

qsizetype IniTextEdit::sendText(unsigned message, qsizetype first, const char* second) const {
  return view_.sendText(message, first, second);
}

void IniTextEdit::freeKey(const QKeySequence& key) {
  if (key.isEmpty()) return;
  const int code = key[0].toCombined();
  QsciCommand* command = text_->standardCommands()->boundTo(code);
  if (command == nullptr) return;
  if (command->key() == code) command->setKey(0);
  if (command->alternateKey() == code) command->setAlternateKey(0);
}

void IniTextEdit::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyColours();
}

bool IniTextEdit::eventFilter(QObject* watched, QEvent* event) {
  const bool released = event->type() == QEvent::KeyRelease || event->type() == QEvent::MouseButtonRelease;
  if (released) Q_EMIT cursorMayHaveMoved();
  if (event->type() != QEvent::ContextMenu) return QWidget::eventFilter(watched, event);
  showMenu(*static_cast<const QContextMenuEvent*>(event));
  return true;
}

void IniTextEdit::showMenu(const QContextMenuEvent& event) {
  if (event.reason() == QContextMenuEvent::Mouse) moveToMenu(event.pos());
  QMenu* menu = text_->createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  Q_EMIT menuAsked(*menu);
  menu->popup(event.globalPos());
}

// What is selected stays selected when the menu is asked for on it.
void IniTextEdit::moveToMenu(const QPoint& at) {
  const qsizetype position = send(Sci::SCI_POSITIONFROMPOINT, at.x(), at.y());
  const TextSpan selected = selection();
  if (position < selected.from || position > selected.to) send(Sci::SCI_GOTOPOS, position);
}

}  // namespace korvane
