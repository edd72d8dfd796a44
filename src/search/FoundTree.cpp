// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/FoundTree.h"

#include "controls/ShownText.h"

namespace korvane {

namespace {

constexpr int kLineRole = Qt::UserRole;         // the line's place in lines_
constexpr int kCountRole = Qt::UserRole + 1;    // of a branch: lines below it
constexpr int kCaptionRole = Qt::UserRole + 2;  // of a branch: without the count

QStandardItem* MakeItem(const QString& text) {
  auto* item = new QStandardItem(ShownText(text));
  item->setEditable(false);
  return item;
}

void CountUp(QStandardItem& branch) {
  const int count = branch.data(kCountRole).toInt() + 1;
  branch.setData(count, kCountRole);
  branch.setText(QStringLiteral("%1 (%2)").arg(branch.data(kCaptionRole).toString()).arg(count));
}

void MarkAsNowhere(QStandardItem& item) {
  QFont font = item.font();
  font.setBold(true);
  item.setFont(font);
}

}  // namespace

FoundTree::FoundTree(QObject* parent) : QStandardItemModel(parent) {
  setHorizontalHeaderLabels({"Where", "Text"});
}

void FoundTree::empty() {
  setRowCount(0);
  lines_.clear();
  branches_.clear();
}

QStandardItem* FoundTree::branch(const QStringList& captions) {
  if (captions.isEmpty()) return invisibleRootItem();
  QStandardItem*& found = branches_[captions];
  if (found != nullptr) return found;
  QStandardItem* made = MakeItem(captions.last());
  made->setData(ShownText(captions.last()), kCaptionRole);
  found = made;  // the call below may move the hash's values
  branch(captions.first(captions.size() - 1))->appendRow({made, MakeItem({})});
  return made;
}

void FoundTree::add(const FoundLine& line) {
  QStandardItem* parent = branch(line.branches);
  QStandardItem* where = MakeItem(QStringLiteral("line %1").arg(line.place.line));
  QStandardItem* text = MakeItem(line.text);
  where->setData(lineCount(), kLineRole);
  where->setToolTip(ShownPlace(line.place));
  text->setToolTip(where->toolTip());
  lines_.push_back(line);
  parent->appendRow({where, text});
  if (line.nowhere) MarkAsNowhere(*parent);
  for (; parent != nullptr && parent != invisibleRootItem(); parent = parent->parent()) CountUp(*parent);
}

const FoundLine* FoundTree::lineAt(QModelIndex index) const {
  index = index.siblingAtColumn(0);
  while (index.isValid() && rowCount(index) > 0) index = this->index(0, 0, index);
  return index.isValid() ? &lines_[static_cast<std::size_t>(index.data(kLineRole).toInt())] : nullptr;
}

}  // namespace korvane
