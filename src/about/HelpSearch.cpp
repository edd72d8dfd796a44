// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/HelpSearch.h"

#include <QTextDocument>

#include <algorithm>
#include <tuple>

#include "about/HelpFile.h"

namespace korvane {

namespace {

QString PlainText(const QString& markdown) {
  QTextDocument document;
  document.setMarkdown(markdown);
  return document.toPlainText();
}

// How often the words stand in the text; 0 when one of them does not.
qsizetype CountOfAll(const QStringList& words, const QString& text) {
  qsizetype sum = 0;
  for (const QString& word : words) {
    const qsizetype count = text.count(word, Qt::CaseInsensitive);
    if (count == 0) return 0;
    sum += count;
  }
  return sum;
}

bool TitleHasOne(const HelpPage& page, const QStringList& words) {
  return std::ranges::any_of(
      words, [&](const QString& word) { return page.title.contains(word, Qt::CaseInsensitive); });
}

}  // namespace

QStringList SearchWords(const QString& text) {
  return text.simplified().split(' ', Qt::SkipEmptyParts);
}

HelpSearch::HelpSearch(const HelpFile& file) {
  for (const HelpPage& page : file.pages()) texts_.push_back({&page, PlainText(page.markdown)});
}

std::vector<HelpHit> HelpSearch::find(const QStringList& words) const {
  std::vector<HelpHit> hits;
  for (const Text& text : texts_) {
    const qsizetype count = CountOfAll(words, text.plain);
    if (count > 0) hits.push_back({text.page, count});
  }
  std::ranges::stable_sort(hits, std::greater{}, [&](const HelpHit& hit) {
    return std::make_tuple(TitleHasOne(*hit.page, words), hit.count);
  });
  return hits;
}

}  // namespace korvane
