// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <string>

#include "writing/BlockCopy.h"

namespace korvane {

class BlockOutline;
class CatalogueService;
class IniTextEdit;

// Makes a new item of an old one: copies the block at the cursor behind itself, under a name that it asks
// for.
class BlockDuplication : public QObject {
  Q_OBJECT

 public:
  BlockDuplication(IniTextEdit& text, BlockOutline& outline, CatalogueService& names);

  // Which file's whole text it is, below the game folder; empty: none that can be saved.
  void setFile(const QString& path);

  void ask();

 Q_SIGNALS:
  // What was made of which, or why it cannot be; empty takes back what was said.
  void said(const QString& sentence);

 private:
  const TextBlock* blockAtCursor() const;
  QString whyNot() const;
  QString whyNotNamed(const QString& name) const;
  void duplicate(const QString& name);
  QString tellOf(const TextBlock& block, const std::string& name) const;
  void lookForCopy();
  void forget();

  IniTextEdit& text_;
  BlockOutline& outline_;
  CatalogueService& names_;
  QString path_;
  std::string copy_;  // the header of the last copy, as long as it stands in the text
};

}  // namespace korvane
