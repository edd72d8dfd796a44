// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace korvane {

struct HelpPage {
  QString name;  // the name of its Markdown file, as links write it
  QString title;
  int topic = 0;  // 0: no topic number
  QString markdown;
};

// A page in the list of contents, and the heading it stands under.
struct ContentsEntry {
  QString heading;
  QString title;
  QString page;
};

// The help file: all pages of the manual in one file, in UTF-8. Its first line is "Korvane help file, version
// 1". Then comes, for each page, one line that begins with a form feed and holds the page's name, followed by
// the page's Markdown up to the next such line. A page may begin with a block between two lines "---" that
// holds lines "name: value"; the one that counts here is its "topic" number. The first page is the contents:
// its headings of the second level and the list entries below them make up the list of contents.
class HelpFile {
 public:
  // Reads the file at the program's path (see NativePath.h).
  explicit HelpFile(const QString& path);

  // Why there are no pages, as a sentence for the user; empty when there are some.
  QString problem() const { return problem_; }

  const std::vector<HelpPage>& pages() const { return pages_; }
  // Nothing when there is no such page.
  const HelpPage* page(const QString& name) const;
  const HelpPage* topic(int number) const;

  std::vector<ContentsEntry> contents() const;

 private:
  QString problem_;
  std::vector<HelpPage> pages_;
};

}  // namespace korvane
