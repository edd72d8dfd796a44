// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FolderTree.h"

#include <QHeaderView>

#include <algorithm>

#include "controls/SteadySelection.h"

namespace korvane {

namespace {

constexpr int kLayoutDelayMs = 150;

bool IsBelow(QModelIndex index, const QModelIndex& ancestor) {
  do index = index.parent();
  while (index.isValid() && index != ancestor);
  return index.isValid();
}

}  // namespace

FolderTree::FolderTree(const QList<FolderPlace>& places, QWidget* parent)
    : QTreeView(parent), model_(new FolderModel(places, this)) {
  setAccessibleName("Folders");
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setIconSize(fontMetrics().height() * QSize(1, 1));
  setModel(model_);
  header()->setStretchLastSection(false);
  header()->setResizeContentsPrecision(0);  // the rows on the screen only
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(this, &QTreeView::expanded, model_, &FolderModel::look);
  connect(this, &QTreeView::collapsed, this, &FolderTree::closed);
  // Folders that turned out to be empty lose the mark that they can be opened. A new layout takes its time in
  // a very large folder, so it waits until the scrolling has ended.
  layoutTimer_.setSingleShot(true);
  layoutTimer_.setInterval(kLayoutDelayMs);
  connect(model_, &FolderModel::settled, &layoutTimer_, qOverload<>(&QTimer::start));
  connect(&layoutTimer_, &QTimer::timeout, this, &FolderTree::scheduleDelayedItemsLayout);
}

// Rows on the screen are read ahead, which shows where the game is. A drive is read only when the user opens
// it: one that is not there can take long to say so.
void FolderTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  if (index.parent().isValid()) model_->look(index);
  QTreeView::drawRow(painter, option, index);
}

// Never less than before: a row that goes out of sight behind the horizontal scroll bar would take away the
// width that the bar is there for, and bring the row back, without end.
int FolderTree::sizeHintForColumn(int column) const {
  widest_ = std::max(widest_, QTreeView::sizeHintForColumn(column));
  return widest_;
}

// The highlight spans the whole width.
void FolderTree::resizeEvent(QResizeEvent* event) {
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
}

void FolderTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const QModelIndexList indexes = selected.indexes();
  if (!indexes.isEmpty()) Q_EMIT folderSelected(indexes.first().data(FolderModel::PathRole).toString());
}

QItemSelectionModel::SelectionFlags FolderTree::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
  return SteadySelection(QTreeView::selectionCommand(index, event), index, event);
}

// A closed folder is read anew when it is opened the next time.
void FolderTree::closed(const QModelIndex& index) {
  if (IsBelow(currentIndex(), index)) setCurrentIndex(index);
  model_->forget(index);
  widest_ = 0;
}

}  // namespace korvane
