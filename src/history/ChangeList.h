// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>

#include <vector>

#include "compare/ComparedTexts.h"

namespace korvane {

// The changes of two texts, grouped by the block in which they are. Changes are counted from 0.
class ChangeList : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ChangeList(QWidget* parent = nullptr);

  // nullptr: nothing is listed.
  void show(const ComparedTexts* texts);
  // Shows it as the current one; -1: none is.
  void setCurrentChange(int change);

 Q_SIGNALS:
  // The user went to it.
  void changeChosen(int change);

 private:
  std::vector<QTreeWidgetItem*> rows_;  // by change
};

}  // namespace korvane
