// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <string>
#include <string_view>

#include "catalogue/BlockTree.h"
#include "manualeditor/TextSearch.h"
#include "writing/Tips.h"

class QPoint;

namespace korvane {

class BlockOutline;
class CatalogueService;
class IniTextEdit;

// The tooltips of the text: what is wrong at the place, else what the name there names or what the key takes.
class TextTips : public QObject {
  Q_OBJECT

 public:
  TextTips(IniTextEdit& text, BlockOutline& outline, CatalogueService& names);

  // Which file's text it is, below the game folder; empty: none that the catalogue has.
  void setFile(const QString& path) { path_ = path.toStdString(); }

  // Of the word at the position, in a file's bytes; empty when there is nothing to tell.
  std::string tipAt(qsizetype position) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::string tipOfKey(const WritingPlace& place, std::string_view around) const;
  std::string tipOfName(const TypedName& name) const;
  std::string tipOfOwnName(const TextBlock& block) const;
  std::string tipOfOther(const TypedName& name) const;
  QString textAt(const QPoint& point) const;
  TextSpan wordAt(qsizetype position) const;

  IniTextEdit& text_;
  BlockOutline& outline_;
  CatalogueService& names_;
  std::string path_;
};

}  // namespace korvane
