// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextFinder.h"

#include <algorithm>

#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

constexpr int kAfterEdit = 300;             // milliseconds without an edit before the hits are counted anew
constexpr std::size_t kMostMarks = 20'000;  // hits that are marked; all are counted
constexpr std::size_t kCountedAtOnce =
    4'000'000;  // bytes of a text whose hits are counted before it is painted
constexpr std::size_t kMostCounted = 16'000'000;  // bytes of a text whose hits are counted

}  // namespace

TextFinder::TextFinder(IniTextEdit& text) : text_(text) {
  recount_.setSingleShot(true);
  connect(&recount_, &QTimer::timeout, this, &TextFinder::count);
  connect(&text_, &IniTextEdit::edited, this, [this] {
    asked_ = false;
    marked_.reset();
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
  if (sought.isEmpty()) return forget(), false;
  const TextSearch search(sought, options);
  const TextSpan within = range();
  return take(search, search.next(text_.utf8(), within, within.from), {});
}

bool TextFinder::find(const QString& sought, const SearchOptions& options, Direction direction, bool wrap) {
  if (sought.isEmpty()) return forget(), false;
  const TextSearch search(sought, options);
  const std::string_view utf8 = text_.utf8();
  const TextSpan within = range();
  const TextSpan selected = text_.selection();
  if (direction == Direction::next) {
    auto hit = search.next(utf8, within, selected.to);
    if (!hit && wrap) hit = search.next(utf8, within, within.from);
    return take(search, hit, wrap ? QString() : QStringLiteral("last"));
  }
  auto hit = search.previous(utf8, within, selected.from);
  if (!hit && wrap) hit = search.previous(utf8, within, within.to);
  return take(search, hit, wrap ? QString() : QStringLiteral("first"));
}

bool TextFinder::take(const TextSearch& search, const std::optional<TextSpan>& hit, const QString& whenNone) {
  shown_ = search;
  found_ = hit.has_value();
  asked_ = true;
  atEnd_ = hit ? QString() : whenNone;
  if (hit) text_.select(*hit);
  if (search.isQuick() && text_.utf8().size() <= kCountedAtOnce) {
    count();  // all is painted in one go then
  } else {
    recount_.start(0);
  }
  return hit.has_value();
}

void TextFinder::forget() {
  shown_.reset();
  marked_.reset();
  recount_.stop();
  text_.setMarks(TextMark::hit, {});
  Q_EMIT told({}, Outcome::neither);
}

void TextFinder::lookAtOther() {
  marked_.reset();
  if (!shown_) return text_.setMarks(TextMark::hit, {});
  asked_ = false;
  atEnd_.clear();
  recount_.start(0);
}

void TextFinder::count() {
  recount_.stop();
  if (!shown_) return;
  if (text_.utf8().size() > kMostCounted) return tellOfLargeText();
  std::vector<TextSpan> hits = shown_->hits(text_.utf8(), range());
  if (const QString fault = shown_->fault(); !fault.isEmpty()) {
    Q_EMIT told(fault, Outcome::neither);
  } else {
    Q_EMIT told(place(hits), hits.empty() && asked_ ? Outcome::notFound : Outcome::found);
  }
  if (hits.size() > kMostMarks) hits.resize(kMostMarks);
  if (marked_ != hits) text_.setMarks(TextMark::hit, hits);
  marked_ = std::move(hits);
}

// Its hits are not counted.
void TextFinder::tellOfLargeText() {
  const bool notFound = asked_ && !found_ && atEnd_.isEmpty() && shown_->fault().isEmpty();
  const QString text = notFound            ? QStringLiteral("Not found")
                       : !atEnd_.isEmpty() ? QStringLiteral("No further hit")
                                           : shown_->fault();
  Q_EMIT told(text, notFound ? Outcome::notFound : Outcome::neither);
}

QString TextFinder::place(const std::vector<TextSpan>& hits) const {
  if (hits.empty()) return asked_ ? QStringLiteral("Not found") : QStringLiteral("No hits");
  const auto selected = std::find(hits.begin(), hits.end(), text_.selection());
  const auto count = QString::number(hits.size());
  if (!atEnd_.isEmpty()) return QStringLiteral("%1 of %2").arg(atEnd_, count);
  if (selected == hits.end()) return hits.size() == 1 ? QStringLiteral("1 hit") : count + " hits";
  return QStringLiteral("%1 of %2").arg(selected - hits.begin() + 1).arg(count);
}

}  // namespace korvane
