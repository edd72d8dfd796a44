// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ComparedPane.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>

#include "compare/LineDifference.h"
#include "controls/ReadableColours.h"
#include "platform/FileText.h"
#include "textview/ScrollMarks.h"
#include "textview/TextLook.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;
using State = AlignedRow::State;

constexpr int kNumberMargin = 0;
constexpr int kTextMargin = 4;      // pixels
constexpr int kFoldIndicator = 24;  // in the control, beside those of the manual editor
constexpr int kWordIndicator = 25;
constexpr int kWordAlphaOnLight = 45;  // of 255
constexpr int kWordAlphaOnDark = 30;
constexpr int kWordEdgeAlpha = 160;
constexpr int kRowShare = 16;  // of the colour in the background of its rows, in percent
constexpr int kFoldShare = 10;
constexpr int kNoLineShare = 5;

// How a row looks in a text. Signs tell what colours tell, for whom colours do not.
struct RowStyle {
  State state;
  int marker;
  const char* sign;
  QRgb onLight;
  QRgb onDark;
};
constexpr std::array kRowStyles = {
    RowStyle{State::changed, 10, "~", 0xFF2B6CB0, 0xFF6FA8F0},
    RowStyle{State::removed, 11, "-", 0xFFC53030, 0xFFF08A8A},
    RowStyle{State::added, 12, "+", 0xFF2F855A, 0xFF6FCF97},
};
constexpr int kFoldMarker = 13;
constexpr int kNoLineMarker = 14;

const RowStyle* StyleOf(State state) {
  const auto* found = std::ranges::find(kRowStyles, state, &RowStyle::state);
  return found == kRowStyles.end() ? nullptr : found;
}

QColor ColourOf(const RowStyle& style, const QPalette& palette) {
  return QColor(TextLook::isDark(palette) ? style.onDark : style.onLight);
}

}  // namespace

ComparedPane::ComparedPane(Side side, QWidget* parent)
    : QObject(parent),
      side_(side),
      text_(new QsciScintilla(parent)),
      view_(*text_),
      look_(new TextLook(view_)),
      scrollMarks_(new ScrollMarks(*text_->verticalScrollBar())) {
  prepare();
  text_->installEventFilter(this);
  text_->viewport()->installEventFilter(this);
  connect(text_, &Sci::SCN_UPDATEUI, this, [this] {
    markWordsInSight();
    if (row() == row_) return;
    row_ = row();
    Q_EMIT rowChanged(row_);
  });
  connect(text_, &Sci::SCN_ZOOM, this, [this] {
    fitMargin();
    Q_EMIT zoomed(static_cast<int>(send(Sci::SCI_GETZOOM)));
  });
}

void ComparedPane::prepare() {
  text_->setUtf8(true);
  text_->setTabWidth(4);
  text_->setReadOnly(true);
  text_->setMarginType(kNumberMargin, QsciScintilla::TextMarginRightJustified);
  for (int margin = kNumberMargin + 1; margin < 5; ++margin) text_->setMarginWidth(margin, 0);
  send(Sci::SCI_SETMARGINMASKN, 1, 0);  // markers colour rows and show no symbols
  send(Sci::SCI_SETMARGINLEFT, 0, kTextMargin);
  send(Sci::SCI_SETUNDOCOLLECTION, 0);
  text_->setCaretLineVisible(true);
  send(Sci::SCI_SETCARETLINEFRAME, 1);
  send(Sci::SCI_SETCARETLINEVISIBLEALWAYS, 1);
  send(Sci::SCI_INDICSETSTYLE, kFoldIndicator, Sci::INDIC_TEXTFORE);
  send(Sci::SCI_INDICSETSTYLE, kWordIndicator, Sci::INDIC_FULLBOX);
  send(Sci::SCI_INDICSETUNDER, kWordIndicator, 1);
  for (const RowStyle& style : kRowStyles) send(Sci::SCI_MARKERDEFINE, style.marker, Sci::SC_MARK_BACKGROUND);
  for (const int marker : {kFoldMarker, kNoLineMarker})
    send(Sci::SCI_MARKERDEFINE, marker, Sci::SC_MARK_BACKGROUND);
  // Copying is the window's: it knows which rows are no lines.
  if (QsciCommand* copy =
          text_->standardCommands()->boundTo(QKeySequence(Qt::CTRL | Qt::Key_C)[0].toCombined()))
    copy->setKey(0);
}

void ComparedPane::applyLook(const QFont& font, const QPalette& palette) {
  look_->apply(font, palette);
  const QColor paper = palette.color(QPalette::Active, QPalette::Base);
  const QColor ink = palette.color(QPalette::Active, QPalette::Text);
  const auto setBack = [this](int marker, const QColor& colour) {
    text_->SendScintilla(Sci::SCI_MARKERSETBACK, static_cast<unsigned long>(marker), colour);
  };
  for (const RowStyle& style : kRowStyles)
    setBack(style.marker, TextLook::mixed(ColourOf(style, palette), paper, kRowShare));
  const QColor fold = TextLook::mixed(ink, paper, kFoldShare);
  setBack(kFoldMarker, fold);
  setBack(kNoLineMarker, TextLook::mixed(ink, paper, kNoLineShare));
  text_->setCaretLineBackgroundColor(palette.color(QPalette::Active, QPalette::Highlight));
  text_->setIndicatorForegroundColor(PaleText(ink, fold), kFoldIndicator);
  text_->setIndicatorForegroundColor(ColourOf(kRowStyles.front(), palette), kWordIndicator);
  send(Sci::SCI_INDICSETALPHA, kWordIndicator,
       TextLook::isDark(palette) ? kWordAlphaOnDark : kWordAlphaOnLight);
  send(Sci::SCI_INDICSETOUTLINEALPHA, kWordIndicator, kWordEdgeAlpha);
  fitMargin();
  showAtScrollBar();
}

std::uint32_t ComparedPane::lineOf(const AlignedRow& row) const {
  return side_ == Side::former ? row.former : row.present;
}

QByteArray ComparedPane::textOf(const AlignedRow& row) const {
  if (row.state == State::fold) return QByteArray::number(row.folded) + " equal lines";
  const std::uint32_t line = lineOf(row);
  if (line == 0) return {};
  const auto& lines = side_ == Side::former ? pair_->texts.formerLines() : pair_->texts.presentLines();
  return QByteArray(lines[line - 1].data(), static_cast<qsizetype>(lines[line - 1].size()));
}

void ComparedPane::show(TextPairPtr pair) {
  pair_ = std::move(pair);
  text_->setReadOnly(false);
  send(Sci::SCI_SHOWLINES, 0, send(Sci::SCI_GETLINECOUNT) - 1);
  send(Sci::SCI_MARKERDELETEALL, -1);
  send(Sci::SCI_MARGINTEXTCLEARALL);
  send(Sci::SCI_CLEARALL);
  if (pair_ != nullptr) fill();
  text_->setReadOnly(true);
  row_ = 0;
}

void ComparedPane::fill() {
  const std::vector<AlignedRow>& rows = pair_->aligned.rows;
  QByteArray text;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i > 0) text += '\n';
    text += textOf(rows[i]);
  }
  view_.sendText(Sci::SCI_ADDTEXT, text.size(), text.constData());
  wordsMarked_.assign(rows.size(), false);
  markRows();
  fitMargin();
  send(Sci::SCI_SETSEL, 0, 0);
  send(Sci::SCI_SETFIRSTVISIBLELINE, 0);
}

void ComparedPane::markRows() {
  const std::vector<AlignedRow>& rows = pair_->aligned.rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto at = static_cast<qsizetype>(i);
    const RowStyle* style = StyleOf(rows[i].state);
    const std::uint32_t line = lineOf(rows[i]);
    if (rows[i].state == State::fold) {
      send(Sci::SCI_MARKERADD, at, kFoldMarker);
      const qsizetype start = send(Sci::SCI_POSITIONFROMLINE, at);
      send(Sci::SCI_SETINDICATORCURRENT, kFoldIndicator);
      send(Sci::SCI_INDICATORFILLRANGE, start, send(Sci::SCI_GETLINEENDPOSITION, at) - start);
    } else if (line == 0) {
      send(Sci::SCI_MARKERADD, at, kNoLineMarker);
    } else if (style != nullptr) {
      send(Sci::SCI_MARKERADD, at, style->marker);
    }
    if (line == 0) continue;
    const std::uint32_t first = side_ == Side::former ? pair_->formerFirst : pair_->presentFirst;
    const QByteArray number =
        QByteArray::number(line + first - 1) + (style == nullptr ? "  " : QByteArray(" ") + style->sign);
    view_.sendText(Sci::SCI_MARGINSETTEXT, at, number.constData());
    send(Sci::SCI_MARGINSETSTYLE, at, Sci::STYLE_LINENUMBER);
  }
}

void ComparedPane::fitMargin() {
  constexpr std::size_t kUsual = 999;  // lines
  const std::size_t last =
      pair_ == nullptr ? 0 : pair_->aligned.rows.size() + std::max(pair_->formerFirst, pair_->presentFirst);
  const QByteArray widest = QByteArray::number(static_cast<qulonglong>(std::max(last, kUsual))) + "  ~";
  send(Sci::SCI_SETMARGINWIDTHN, kNumberMargin,
       view_.sendText(Sci::SCI_TEXTWIDTH, Sci::STYLE_LINENUMBER, widest.constData()) + 2 * kTextMargin);
}

void ComparedPane::setHidden(std::size_t firstRow, std::size_t count, bool hidden) {
  const auto first = static_cast<qsizetype>(firstRow);
  send(hidden ? Sci::SCI_HIDELINES : Sci::SCI_SHOWLINES, first, first + static_cast<qsizetype>(count) - 1);
}

int ComparedPane::row() const {
  return static_cast<int>(send(Sci::SCI_LINEFROMPOSITION, send(Sci::SCI_GETCURRENTPOS)));
}

void ComparedPane::setRow(int row) {
  const qsizetype position = send(Sci::SCI_POSITIONFROMLINE, row);
  send(Sci::SCI_SETEMPTYSELECTION, position);
  row_ = row;
}

void ComparedPane::scrollTo(int row) {
  const qsizetype seen = send(Sci::SCI_VISIBLEFROMDOCLINE, row);
  const qsizetype top = send(Sci::SCI_GETFIRSTVISIBLELINE);
  const qsizetype rows = send(Sci::SCI_LINESONSCREEN);
  if (seen < top || seen >= top + rows)
    send(Sci::SCI_SETFIRSTVISIBLELINE, std::max<qsizetype>(seen - rows / 4, 0));
}

int ComparedPane::textWidth() const {
  if (pair_ == nullptr) return 1;
  const auto& lines = side_ == Side::former ? pair_->texts.formerLines() : pair_->texts.presentLines();
  const auto longest = std::ranges::max_element(lines, {}, &std::string_view::size);
  if (longest == lines.end()) return 1;
  constexpr std::size_t kMost = 4096;  // bytes that are measured
  QByteArray text(longest->data(), static_cast<qsizetype>(std::min(longest->size(), kMost)));
  text.replace('\t', "    ").replace('\0', ' ');
  return static_cast<int>(view_.sendText(Sci::SCI_TEXTWIDTH, Sci::STYLE_DEFAULT, text.constData()));
}

void ComparedPane::showAtScrollBar() {
  const qsizetype rowCount = send(Sci::SCI_GETLINECOUNT);
  scrollMarks_->setLineCount(static_cast<int>(send(Sci::SCI_VISIBLEFROMDOCLINE, rowCount)));
  for (const RowStyle& style : kRowStyles) {
    std::vector<int> lines;
    for (std::size_t i = 0; pair_ != nullptr && i < pair_->aligned.rows.size(); ++i) {
      if (pair_->aligned.rows[i].state == style.state)
        lines.push_back(static_cast<int>(send(Sci::SCI_VISIBLEFROMDOCLINE, static_cast<qsizetype>(i))));
    }
    scrollMarks_->setLines(style.marker, ColourOf(style, text_->palette()), std::move(lines));
  }
}

QString ComparedPane::selectedText() const {
  if (pair_ == nullptr || send(Sci::SCI_GETSELECTIONEMPTY) != 0) return {};
  const qsizetype from = send(Sci::SCI_GETSELECTIONSTART);
  const qsizetype to = send(Sci::SCI_GETSELECTIONEND);
  const auto firstRow = static_cast<std::size_t>(send(Sci::SCI_LINEFROMPOSITION, from));
  const auto lastRow = static_cast<std::size_t>(send(Sci::SCI_LINEFROMPOSITION, to));
  QStringList lines;
  for (std::size_t i = firstRow; i <= lastRow; ++i) {
    if (lineOf(pair_->aligned.rows[i]) == 0) continue;
    const QByteArray text = textOf(pair_->aligned.rows[i]);
    const qsizetype start = send(Sci::SCI_POSITIONFROMLINE, static_cast<qsizetype>(i));
    const qsizetype begin = std::max<qsizetype>(from - start, 0);
    const qsizetype end = std::min<qsizetype>(to - start, text.size());
    lines += CharactersOfUtf8(text.mid(begin, end - begin).toStdString());
  }
  return lines.join('\n');
}

// What differs inside of changed lines is looked for when it is seen: thousands of lines can have changed.
void ComparedPane::markWordsInSight() {
  if (pair_ == nullptr) return;
  const qsizetype top = send(Sci::SCI_GETFIRSTVISIBLELINE);
  for (qsizetype seen = top; seen <= top + send(Sci::SCI_LINESONSCREEN); ++seen) {
    const auto row = static_cast<std::size_t>(send(Sci::SCI_DOCLINEFROMVISIBLE, seen));
    if (row >= wordsMarked_.size() || wordsMarked_[row]) continue;
    wordsMarked_[row] = true;
    if (pair_->aligned.rows[row].state == State::changed) markWords(row);
  }
}

void ComparedPane::markWords(std::size_t row) {
  const AlignedRow& aligned = pair_->aligned.rows[row];
  const WordDifference words = CompareWords(pair_->texts.formerLines()[aligned.former - 1],
                                            pair_->texts.presentLines()[aligned.present - 1]);
  const qsizetype start = send(Sci::SCI_POSITIONFROMLINE, static_cast<qsizetype>(row));
  send(Sci::SCI_SETINDICATORCURRENT, kWordIndicator);
  for (const LinePart& part : side_ == Side::former ? words.former : words.present) {
    send(Sci::SCI_INDICATORFILLRANGE, start + static_cast<qsizetype>(part.begin),
         static_cast<qsizetype>(part.size));
  }
}

bool ComparedPane::eventFilter(QObject* watched, QEvent* event) {
  bool asked = false;
  if (event->type() == QEvent::MouseButtonRelease) {
    const auto& mouse = *static_cast<const QMouseEvent*>(event);
    asked = mouse.button() == Qt::LeftButton && send(Sci::SCI_GETSELECTIONEMPTY) != 0;
  } else if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<const QKeyEvent*>(event)->key();
    asked = key == Qt::Key_Return || key == Qt::Key_Enter;
  }
  const auto at = static_cast<std::size_t>(row());
  asked = asked && pair_ != nullptr && at < pair_->aligned.rows.size() &&
          pair_->aligned.rows[at].state == State::fold;
  // The control has its own use for the event first.
  if (asked) {
    QMetaObject::invokeMethod(
        this, [this, at] { Q_EMIT foldAsked(static_cast<int>(at)); }, Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

qsizetype ComparedPane::send(unsigned message, qsizetype first, qsizetype second) const {
  return view_.send(message, first, second);
}

}  // namespace korvane
