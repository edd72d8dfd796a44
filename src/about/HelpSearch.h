// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace korvane {

class HelpFile;
struct HelpPage;

struct HelpHit {
  const HelpPage* page;
  qsizetype count;  // how often the words stand in the page
};

QStringList SearchWords(const QString& text);

// Finds words in the pages of a help file, without regard to letter case.
class HelpSearch {
 public:
  // The file must outlive the search.
  explicit HelpSearch(const HelpFile& file);

  // The pages in which every word stands: pages with a word in their title first, then those with the most
  // hits. No words find nothing.
  std::vector<HelpHit> find(const QStringList& words) const;

 private:
  struct Text {
    const HelpPage* page;
    QString plain;
  };
  std::vector<Text> texts_;
};

}  // namespace korvane
