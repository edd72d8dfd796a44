// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/LiveFindings.h"

#include <QToolTip>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <chrono>

#include "app/CatalogueService.h"
#include "manualeditor/FindingMarks.h"
#include "manualeditor/IniTextEdit.h"
#include "manualeditor/UserFile.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr std::chrono::milliseconds kPause(300);        // without an edit
constexpr std::chrono::milliseconds kAfterLoading(50);  // in which a new text is painted first

// Files that have not changed are taken over from one catalogue to the next.
bool SameNames(const CataloguePtr& a, const CataloguePtr& b) {
  return a != nullptr && b != nullptr && a->sources() == b->sources() && a->files() == b->files();
}

}  // namespace

LiveFindings::LiveFindings(IniTextEdit& text, CatalogueService& names)
    : QObject(&text), text_(text), names_(names) {
  soon_.setSingleShot(true);
  connect(&soon_, &QTimer::timeout, this, &LiveFindings::check);
  connect(&text_, &IniTextEdit::edited, this, &LiveFindings::checkSoon);
  connect(&names_, &CatalogueService::changed, this, &LiveFindings::namesChanged);
  connect(&check_, &TextCheck::found, this, &LiveFindings::show);
}

void LiveFindings::setFile(const QString& path) {
  text_.findingMarks().show({});
  take(path);
  if (!path_.isEmpty()) soon_.start(kAfterLoading);
}

void LiveFindings::goOnWith(const QString& path) {
  take(path);
  if (!path_.isEmpty()) check();
}

void LiveFindings::take(const QString& path) {
  check_.cancel();
  soon_.stop();
  path_ = IsDataFile(path) ? path : QString();
}

void LiveFindings::lookAgain() {
  if (!path_.isEmpty()) names_.refresh();
}

// What is under way is about the text before the edit.
void LiveFindings::checkSoon() {
  check_.cancel();
  if (!path_.isEmpty()) soon_.start(kPause);
}

// Before the names of all files and of the further data are known, nothing can be called missing.
void LiveFindings::check() {
  names_.ensure();
  const CataloguePtr names = names_.isCurrent() ? names_.withUnsaved(path_) : nullptr;
  if (!SameNames(checked_, names)) checked_ = names;
  if (checked_ != nullptr) check_.start(checked_, path_, std::string(text_.utf8()));
}

void LiveFindings::namesChanged() {
  const bool wanted = !path_.isEmpty() && !soon_.isActive() && names_.isCurrent();
  if (wanted && !SameNames(checked_, names_.withUnsaved(path_))) check();
}

void LiveFindings::show(const std::vector<TextFinding>& findings) {
  text_.findingMarks().show(findings);
  Q_EMIT marked();
}

void LiveFindings::goToNext() {
  goTo(text_.findingMarks().next(text_.selection().from));
}

void LiveFindings::goToPrevious() {
  goTo(text_.findingMarks().previous(text_.selection().from));
}

void LiveFindings::goTo(const TextFinding* finding) {
  if (finding == nullptr) return;
  text_.select(finding->span);
  QToolTip::showText(text_.placeOnScreen(finding->span.from).bottomLeft(), FindingsText({finding}), &text_);
}

void LiveFindings::applySuggestion() {
  const std::vector<const TextFinding*> here = text_.findingMarks().at(text_.selection());
  const auto found =
      std::ranges::find_if(here, [](const TextFinding* each) { return !each->finding.suggestion.empty(); });
  if (found == here.end()) return;
  const std::string suggestion = (*found)->finding.suggestion;
  const TextSpan span = (*found)->span;
  text_.findingMarks().remove(span);
  text_.replaceSpan(span, suggestion);
  QToolTip::hideText();
}

}  // namespace korvane
