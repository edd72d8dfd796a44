// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeList.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include "controls/ShownText.h"
#include "platform/FileText.h"

namespace korvane {

namespace {

constexpr int kChangeRole = Qt::UserRole;
const QString kOutside = QStringLiteral("Outside of all blocks");

QString Shown(const std::string& utf8) {
  return ShownText(CharactersOfUtf8(utf8));
}

QTreeWidgetItem* NewRow(const QString& text, int change) {
  auto* row = new QTreeWidgetItem({text});
  row->setData(0, kChangeRole, change);
  return row;
}

}  // namespace

ChangeList::ChangeList(QWidget* parent) : QTreeWidget(parent) {
  setAccessibleName("Changes");
  setHeaderLabel("Changes");
  setUniformRowHeights(true);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* row) {
    if (row != nullptr) Q_EMIT changeChosen(row->data(0, kChangeRole).toInt());
  });
}

// A block with one change is one row, "Object Tank: BuildCost 900 → 800".
void ChangeList::show(const ComparedTexts* texts) {
  const QSignalBlocker quiet(this);
  clear();
  rows_.clear();
  if (texts == nullptr) return;
  const std::vector<TextChange>& changes = texts->changes();
  QList<QTreeWidgetItem*> top;
  for (std::size_t i = 0; i < changes.size();) {
    std::size_t end = i + 1;
    while (end < changes.size() && changes[end].block == changes[i].block) ++end;
    const QString block = changes[i].block.empty() ? kOutside : Shown(changes[i].block);
    const bool alone = end == i + 1;
    QTreeWidgetItem* group =
        NewRow(alone ? block + ": " + Shown(changes[i].summary) : block, static_cast<int>(i));
    top += group;
    if (alone) rows_.push_back(group);
    for (; i < end; ++i) {
      if (alone) continue;
      rows_.push_back(NewRow(Shown(changes[i].summary), static_cast<int>(i)));
      group->addChild(rows_.back());
    }
  }
  addTopLevelItems(top);
  expandAll();
}

void ChangeList::setCurrentChange(int change) {
  const QSignalBlocker quiet(this);
  const bool isRow = change >= 0 && static_cast<std::size_t>(change) < rows_.size();
  setCurrentItem(isRow ? rows_[static_cast<std::size_t>(change)] : nullptr);
}

}  // namespace korvane
