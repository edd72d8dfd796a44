// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <string>
#include <vector>

#include "writing/Proposals.h"

class QKeyEvent;

namespace korvane {

class BlockOutline;
class CatalogueService;
class IniTextEdit;
class ProposalList;

// Proposes words while somebody types. A list that came by itself takes Tab and Escape and leaves every other
// key to the text; one that was asked for takes the arrows and Enter too.
class Completion : public QObject {
  Q_OBJECT

 public:
  Completion(IniTextEdit& text, BlockOutline& outline, CatalogueService& names);

  // Which file's text it is, below the game folder; empty: none that the catalogue has.
  void setFile(const QString& path);
  // Whether lists come by themselves.
  void setAutomatic(bool automatic) { automatic_ = automatic; }

  void ask();
  void close();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void typed(int character);
  void updateSoon();
  void update();
  void show(const Proposals& proposals);
  void take();
  bool takesKey(const QKeyEvent& key) const;
  bool useKey(const QKeyEvent& key);
  bool mayType() const;
  Proposals proposals();
  std::string textBefore(qsizetype position) const;

  IniTextEdit& text_;
  BlockOutline& outline_;
  CatalogueService& names_;
  ProposalList* list_;
  QString path_;
  std::vector<ItemName> own_;  // what the text defines
  bool ownKnown_ = false;
  bool automatic_ = true;
  bool asked_ = false;
  qsizetype start_ = 0;       // of the word that the list is for
  qsizetype cursor_ = 0;      // when the list was filled
  qsizetype dismissed_ = -1;  // the start of the word whose list was not wanted
  QTimer soon_;
};

}  // namespace korvane
