// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <vector>

#include "app/Places.h"
#include "catalogue/NameMatcher.h"

class QAction;

namespace korvane {

class CatalogueService;

// What somebody who looks for anything can choose.
struct SearchRow {
  enum class What { hint, item, file, line, command };

  What what = What::hint;
  QString name{};
  QString kind{};                 // shown behind the name
  QString where{};                // shown at the right
  std::vector<NamePart> marks{};  // the characters of the name that match
  ItemPlace item{};               // of an item or a file; its line alone for a line
  QAction* command = nullptr;
};

// What the window has in which somebody looks for anything.
struct WindowOffers {
  QList<QAction*> commands{};
  bool hasLines = false;  // it shows a file
};

// Finds rows for what is typed. One for all windows: it also remembers what was chosen.
class SearchRows {
 public:
  explicit SearchRows(CatalogueService& names) : names_(names) {}

  CatalogueService& names() const { return names_; }

  // The best rows first. ":120" is a line of the open file, a letter with a colon narrows to a kind. Without
  // a text: what was chosen last, and hints.
  std::vector<SearchRow> find(const QString& typed, const WindowOffers& offers) const;
  void remember(const SearchRow& row);

 private:
  void addItems(std::vector<SearchRow>& rows, const QString& pattern, std::vector<KindId> kinds) const;
  void addFiles(std::vector<SearchRow>& rows, const QString& pattern) const;
  std::vector<SearchRow> start(const WindowOffers& offers) const;

  CatalogueService& names_;
  std::vector<SearchRow> chosen_;  // the last first
};

}  // namespace korvane
