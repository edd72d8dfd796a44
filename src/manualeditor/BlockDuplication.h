// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <string>

#include "writing/BlockCopy.h"

namespace korvane {

class BlockOutline;
class CatalogueService;
class IniTextEdit;
class OpenText;

// What was said of the last copy in a text.
struct CopyNote {
  std::string header;  // the copy's, as long as it stands there; empty: nothing was copied
  QString sentence;
};

// Makes a new item of an old one: copies the block at the cursor behind itself, under a name that it asks
// for.
class BlockDuplication : public QObject {
  Q_OBJECT

 public:
  BlockDuplication(IniTextEdit& text, BlockOutline& outline, CatalogueService& names);

  // Which of the texts the control shows from now on, with what was said of it.
  void setText(OpenText& shown);

  void ask();

 Q_SIGNALS:
  // Of the shown text, what was made of which, or why it cannot be; empty takes back what was said.
  void said(const QString& sentence);

 private:
  const TextBlock* blockAtCursor() const;
  QString whyNot() const;
  QString whyNotNamed(const QString& name) const;
  void duplicate(const QString& name);
  QString tellOf(const TextBlock& block, const std::string& name) const;
  void lookForCopy();
  void say(const QString& sentence, const std::string& copy = {});

  IniTextEdit& text_;
  BlockOutline& outline_;
  CatalogueService& names_;
  QPointer<OpenText> shown_;
};

}  // namespace korvane
