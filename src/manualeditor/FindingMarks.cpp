// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FindingMarks.h"

#include <QPalette>
#include <QPoint>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>
#include <utility>

#include "controls/ShownText.h"
#include "textview/ScrollMarks.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kSignMargin = 4;
constexpr int kSignWidth = 14;     // pixels
constexpr int kScrollKinds = 200;  // apart from those of other marks
constexpr std::size_t kMarkedAtOnce = 500;
constexpr int kInserts = Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_BEFOREINSERT;
constexpr int kDeletes = Sci::SC_MOD_DELETETEXT | Sci::SC_MOD_BEFOREDELETE;

struct MarkStyle {
  Level level;
  int indicator;
  int marker;  // a higher one covers a lower one
  int symbol;  // also tells them apart for whom colours do not
  QRgb onLight;
  QRgb onDark;
};
constexpr std::array kStyles = {
    MarkStyle{Level::note, 24, 4, Sci::SC_MARK_SMALLRECT, 0xFF2B6CB0, 0xFF8AB4F0},
    MarkStyle{Level::warning, 25, 5, Sci::SC_MARK_ARROWDOWN, 0xFFB36B00, 0xFFFFB84D},
    MarkStyle{Level::error, 26, 6, Sci::SC_MARK_CIRCLE, 0xFFC62828, 0xFFFF7B72},
};

const MarkStyle& StyleOf(Level level) {
  return kStyles[static_cast<std::size_t>(level)];
}

int SignsMask() {
  int mask = 0;
  for (const MarkStyle& style : kStyles) mask |= 1 << style.marker;
  return mask;
}

QColor ColourOf(const MarkStyle& style, const QPalette& palette) {
  const bool dark = palette.color(QPalette::Active, QPalette::Base).lightness() <
                    palette.color(QPalette::Active, QPalette::Text).lightness();
  return QColor(dark ? style.onDark : style.onLight);
}

QString LevelText(Level level) {
  const std::string_view name = LevelName(level);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

bool Touch(TextSpan a, TextSpan b) {
  return a.from <= b.to && b.from <= a.to;
}

// Where a position comes to lie when `length` bytes from `place` on came, or went when it is negative.
qsizetype Moved(qsizetype position, qsizetype place, qsizetype length) {
  return position < place ? position : std::max(place, position + length);
}

}  // namespace

FindingMarks::FindingMarks(const ScintillaView& view, ScrollMarks& scrollMarks)
    : QObject(&view.control()), view_(view), scrollMarks_(scrollMarks) {
  view_.control().setMarginWidth(kSignMargin, kSignWidth);
  view_.send(Sci::SCI_SETMARGINTYPEN, kSignMargin, Sci::SC_MARGIN_SYMBOL);
  view_.send(Sci::SCI_SETMARGINMASKN, kSignMargin, SignsMask());
  for (const MarkStyle& style : kStyles) {
    view_.send(Sci::SCI_INDICSETSTYLE, style.indicator, Sci::INDIC_SQUIGGLE);
    view_.send(Sci::SCI_INDICSETUNDER, style.indicator, 1);
    view_.send(Sci::SCI_MARKERDEFINE, style.marker, style.symbol);
  }
  connect(&view_.control(), &Sci::SCN_MODIFIED, this,
          [this](int position, int kind, const char*, int length) { modified(position, kind, length); });
  markSoon_.setSingleShot(true);
  connect(&markSoon_, &QTimer::timeout, this, &FindingMarks::markSome);
}

void FindingMarks::applyColours(const QPalette& palette) {
  for (const MarkStyle& style : kStyles) {
    const QColor colour = ColourOf(style, palette);
    view_.control().setIndicatorForegroundColor(colour, style.indicator);
    for (const auto message : {Sci::SCI_MARKERSETFORE, Sci::SCI_MARKERSETBACK}) {
      view_.control().SendScintilla(message, static_cast<unsigned long>(style.marker), colour);
    }
  }
  showAtScrollBar();
}

FindingMarks::Shown FindingMarks::exchange(Shown next) {
  markSoon_.stop();
  return std::exchange(shown_, std::move(next));
}

void FindingMarks::enterText() {
  markSome();
  showAtScrollBar();
}

void FindingMarks::show(std::vector<TextFinding> findings) {
  clear();
  shown_.findings = std::move(findings);
  markSome();
  showAtScrollBar();
}

void FindingMarks::clear() {
  markSoon_.stop();
  if (shown_.marked > 0) clearMarks();
  shown_ = {};
}

void FindingMarks::clearMarks() {
  const auto current = view_.send(Sci::SCI_GETINDICATORCURRENT);
  for (const MarkStyle& style : kStyles) {
    view_.send(Sci::SCI_SETINDICATORCURRENT, style.indicator);
    view_.send(Sci::SCI_INDICATORCLEARRANGE, 0, view_.send(Sci::SCI_GETLENGTH));
    view_.send(Sci::SCI_MARKERDELETEALL, style.marker);
  }
  view_.send(Sci::SCI_SETINDICATORCURRENT, current);
}

// A text that is no INI file has more findings than can be marked between two keys.
void FindingMarks::markSome() {
  const auto current = view_.send(Sci::SCI_GETINDICATORCURRENT);
  const std::size_t end = std::min(shown_.marked + kMarkedAtOnce, shown_.findings.size());
  for (; shown_.marked < end; ++shown_.marked) mark(shown_.findings[shown_.marked]);
  view_.send(Sci::SCI_SETINDICATORCURRENT, current);
  if (shown_.marked < shown_.findings.size()) markSoon_.start();
}

void FindingMarks::mark(const TextFinding& finding) {
  const MarkStyle& style = StyleOf(finding.finding.level);
  const TextSpan& span = finding.span;
  view_.send(Sci::SCI_SETINDICATORCURRENT, style.indicator);
  view_.send(Sci::SCI_INDICATORFILLRANGE, span.from, span.to - span.from);
  const auto line = lineAt(span.from);
  if ((view_.send(Sci::SCI_MARKERGET, line) & (1 << style.marker)) == 0)
    view_.send(Sci::SCI_MARKERADD, line, style.marker);
}

// The control moves what it has been told to draw; this moves the rest. A large text tells of its edits
// before it makes them.
void FindingMarks::modified(int position, int kind, int length) {
  if ((kind & (kInserts | kDeletes)) == 0) return;
  const qsizetype moved = (kind & kInserts) != 0 ? length : -length;
  for (auto& [finding, span] : shown_.findings) {
    span.from = Moved(span.from, position, moved);
    span.to = std::max(span.from, Moved(span.to, position, moved));
  }
}

const TextFinding* FindingMarks::next(qsizetype position) const {
  if (shown_.findings.empty()) return nullptr;
  const auto found = std::ranges::find_if(
      shown_.findings, [position](const TextFinding& each) { return each.span.from > position; });
  return found == shown_.findings.end() ? &shown_.findings.front() : &*found;
}

const TextFinding* FindingMarks::previous(qsizetype position) const {
  if (shown_.findings.empty()) return nullptr;
  const auto found = std::find_if(shown_.findings.rbegin(), shown_.findings.rend(),
                                  [position](const TextFinding& each) { return each.span.from < position; });
  return found == shown_.findings.rend() ? &shown_.findings.back() : &*found;
}

std::vector<const TextFinding*> FindingMarks::at(TextSpan span) const {
  const auto line = lineAt(span.from);
  std::vector<const TextFinding*> touching;
  std::vector<const TextFinding*> inLine;
  for (const TextFinding& each : shown_.findings) {
    if (Touch(each.span, span)) touching.push_back(&each);
    if (lineAt(each.span.from) == line) inLine.push_back(&each);
  }
  return touching.empty() ? inLine : touching;
}

void FindingMarks::remove(TextSpan span) {
  std::vector<TextFinding> others = shown_.findings;
  std::erase_if(others, [span](const TextFinding& each) { return Touch(each.span, span); });
  show(std::move(others));
}

void FindingMarks::showAtScrollBar() {
  scrollMarks_.setLineCount(static_cast<int>(view_.send(Sci::SCI_GETLINECOUNT)));
  for (const MarkStyle& style : kStyles) {
    std::vector<int> lines;
    for (const TextFinding& each : shown_.findings) {
      if (each.finding.level == style.level) lines.push_back(static_cast<int>(lineAt(each.span.from)));
    }
    scrollMarks_.setLines(kScrollKinds + style.marker, ColourOf(style, view_.control().palette()),
                          std::move(lines));
  }
}

QString FindingMarks::textAt(const QPoint& point) const {
  qsizetype margins = 0;
  for (int margin = 0; margin <= kSignMargin; ++margin)
    margins += view_.send(Sci::SCI_GETMARGINWIDTHN, margin);
  const bool inMargin = point.x() < margins;
  const auto offset = view_.send(inMargin ? Sci::SCI_POSITIONFROMPOINT : Sci::SCI_POSITIONFROMPOINTCLOSE,
                                 point.x(), point.y());
  std::vector<const TextFinding*> shown;
  for (const TextFinding& each : shown_.findings) {
    const bool here = inMargin ? lineAt(each.span.from) == lineAt(offset)
                               : each.span.from <= offset && offset < each.span.to;
    if (offset >= 0 && here) shown.push_back(&each);
  }
  return FindingsText(shown);
}

qsizetype FindingMarks::lineAt(qsizetype position) const {
  return view_.send(Sci::SCI_LINEFROMPOSITION, position);
}

QString FindingsText(const std::vector<const TextFinding*>& findings) {
  QStringList texts;
  for (const TextFinding* each : findings) {
    const Finding& finding = each->finding;
    QString text =
        QStringLiteral("%1: %2 [%3]")
            .arg(LevelText(finding.level), QString::fromStdString(finding.text),
                 QString::fromUtf8(finding.code.data(), static_cast<qsizetype>(finding.code.size())));
    if (!finding.suggestion.empty())
      text += "\nCtrl+. puts '" + QString::fromStdString(finding.suggestion) + "' here";
    texts += text;
  }
  return PlainToolTip(texts.join('\n'));
}

}  // namespace korvane
