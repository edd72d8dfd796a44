// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpression>

#include "catalogue/Catalogue.h"
#include "search/LineFinder.h"

namespace korvane {

// The searches that a LineFinder carries out.

// Where the name is defined and what uses it: the kind and the block, then the lines. Lines are read as the
// files have them now.
LineFinder::Search UsesOf(CataloguePtr names, NameHere name);

// The names that the outermost block at the place uses: the kind and the name, then the lines.
LineFinder::Search NamesUsedAt(CataloguePtr names, const FilePlace& place);

// Where the block of blockHere() starts in the files. An item's first definition in the file of its place, or
// in any; without an item it is the place itself.
FilePlace StartOfBlock(const Catalogue& names, const ItemPlace& block);

// The header of the outermost block at the place; empty when there is none.
QString BlockCaption(const Catalogue& names, const FilePlace& place);

struct TextToFind {
  QString text{};
  bool expression = false;  // a regular expression; else the text itself
  bool wholeWords = false;
  bool letterCase = false;  // counts

  QRegularExpression pattern() const;
};

// The lines of all INI files of the sources in which the pattern matches: the file, then the lines.
LineFinder::Search LinesWith(CatalogueSources sources, const QRegularExpression& pattern);

}  // namespace korvane
