// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QStandardItemModel>

#include "search/LineFinder.h"

namespace korvane {

// Found lines below their branches; a branch says how many lines it has.
class FoundTree : public QStandardItemModel {
  Q_OBJECT

 public:
  explicit FoundTree(QObject* parent);

  void empty();
  void add(const FoundLine& line);
  int lineCount() const { return static_cast<int>(lines_.size()); }
  const std::vector<FoundLine>& lines() const { return lines_; }

  // The line at the index, or the first one below it; nullptr for an index of nothing.
  const FoundLine* lineAt(QModelIndex index) const;

 private:
  QStandardItem* branch(const QStringList& captions);

  std::vector<FoundLine> lines_;
  QHash<QStringList, QStandardItem*> branches_;
};

}  // namespace korvane
