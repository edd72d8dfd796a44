// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextFinder.h"

#include <algorithm>

#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

constexpr int kAfterEdit = 300;             // milliseconds without an edit before the hits are counted anew
constexpr std::size_t kMostMarks = 20'000;  // hits that are marked; all are counted
constexpr std::size_t kMostCounted = 16'000'000;  // bytes of a text whose hits are counted

}  // namespace

TextFinder::TextFinder(IniTextEdit& text) : text_(text) {
  recount_.setSingleShot(true);
  connect(&recount_, &QTimer::timeout, this, &TextFinder::count);
  connect(&text_, &IniTextEdit::edited, this, [this] {
    if (shown_) recount_.start(kAfterEdit);
  });
}

bool TextFinder::confine() {
  const TextSpan selected = text_.selection();
  if (selected.from == selected.to) return false;
  text_.setMarks(TextMark::scope, {selected});
  return true;
}

void TextFinder::unconfine() {
  text_.setMarks(TextMark::scope, {});
}

TextSpan TextFinder::range() const {
  const TextSpan all{0, static_cast<qsizetype>(text_.utf8().size())};
  return text_.markedSpan(TextMark::scope).value_or(all);
}

bool TextFinder::findFirst(const QString& sought, const SearchOptions& options) {
  const TextSearch search(sought, options);
  const TextSpan within = range();
  return take(search, search.next(text_.utf8(), within, within.from), {});
}

bool TextFinder::find(const QString& sought, const SearchOptions& options, Direction direction, bool wrap) {
  const TextSearch search(sought, options);
  const std::string_view utf8 = text_.utf8();
  const TextSpan within = range();
  const TextSpan selected = text_.selection();
  if (direction == Direction::next) {
    auto hit = search.next(utf8, within, selected.to);
    if (!hit && wrap) hit = search.next(utf8, within, within.from);
    return take(search, hit, QStringLiteral("last"));
  }
  auto hit = search.previous(utf8, within, selected.from);
  if (!hit && wrap) hit = search.previous(utf8, within, within.to);
  return take(search, hit, QStringLiteral("first"));
}

bool TextFinder::take(const TextSearch& search, const std::optional<TextSpan>& hit, const QString& whenNone) {
  shown_ = search;
  atEnd_ = hit ? QString() : whenNone;
  if (hit) text_.select(*hit);
  recount_.start(0);
  return hit.has_value();
}

void TextFinder::forget() {
  shown_.reset();
  recount_.stop();
  text_.setMarks(TextMark::hit, {});
  Q_EMIT told({}, true);
}

void TextFinder::count() {
  if (!shown_) return;
  if (const QString fault = shown_->fault(); !fault.isEmpty()) {
    Q_EMIT told(fault, false);
    return;
  }
  if (text_.utf8().size() > kMostCounted) {
    Q_EMIT told(atEnd_.isEmpty() ? QString() : QStringLiteral("No further hit"), atEnd_.isEmpty());
    return;
  }
  std::vector<TextSpan> hits = shown_->hits(text_.utf8(), range());
  Q_EMIT told(place(hits), !hits.empty());
  if (hits.size() > kMostMarks) hits.resize(kMostMarks);
  text_.setMarks(TextMark::hit, hits);
}

QString TextFinder::place(const std::vector<TextSpan>& hits) const {
  if (hits.empty()) return QStringLiteral("Not found");
  const auto selected = std::find(hits.begin(), hits.end(), text_.selection());
  const auto count = QString::number(hits.size());
  if (!atEnd_.isEmpty()) return QStringLiteral("%1 of %2").arg(atEnd_, count);
  if (selected == hits.end()) return hits.size() == 1 ? QStringLiteral("1 hit") : count + " hits";
  return QStringLiteral("%1 of %2").arg(selected - hits.begin() + 1).arg(count);
}

}  // namespace korvane
