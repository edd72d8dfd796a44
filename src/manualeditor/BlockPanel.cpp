// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockPanel.h"

#include <QTreeView>

#include "controls/Named.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/IniTextEdit.h"

namespace korvane {

BlockModel::BlockModel(BlockOutline& outline) : QAbstractItemModel(&outline), outline_(outline) {}

void BlockModel::refresh() {
  beginResetModel();
  const auto& blocks = outline_.blocks();
  top_.clear();
  children_.assign(blocks.size(), {});
  rows_.assign(blocks.size(), 0);
  for (std::uint32_t i = 0; i < blocks.size(); ++i) {
    auto& siblings = blocks[i].parent == TextBlock::kNone ? top_ : children_[blocks[i].parent];
    rows_[i] = static_cast<int>(siblings.size());
    siblings.push_back(i);
  }
  endResetModel();
}

QModelIndex BlockModel::indexOf(std::uint32_t block) const {
  return block < rows_.size() ? createIndex(rows_[block], 0, block) : QModelIndex();
}

const std::vector<std::uint32_t>& BlockModel::childrenOf(const QModelIndex& parent) const {
  return parent.isValid() ? children_[parent.internalId()] : top_;
}

QModelIndex BlockModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, childrenOf(parent)[static_cast<std::size_t>(row)]);
}

QModelIndex BlockModel::parent(const QModelIndex& index) const {
  return index.isValid() ? indexOf(outline_.blocks()[index.internalId()].parent) : QModelIndex();
}

int BlockModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(childrenOf(parent).size());
}

QVariant BlockModel::data(const QModelIndex& index, int role) const {
  const bool shown = role == Qt::DisplayRole || role == Qt::ToolTipRole;
  if (!index.isValid() || !shown) return {};
  return BlockOutline::captionOf(outline_.blocks()[index.internalId()]);
}

BlockPanel::BlockPanel(IniTextEdit& text, BlockOutline& outline, QWidget* parent)
    : QDockWidget("Blocks", parent),
      text_(text),
      outline_(outline),
      model_(new BlockModel(outline)),
      tree_(Named("blockTree", new QTreeView)) {
  setObjectName("blockPanel");
  setFeatures(DockWidgetClosable);
  tree_->setAccessibleName("Blocks");
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setModel(model_);
  setWidget(tree_);
  connect(tree_, &QTreeView::activated, this, &BlockPanel::goTo);
  connect(tree_, &QTreeView::clicked, this, &BlockPanel::goTo);
  connect(&outline_, &BlockOutline::changed, this, &BlockPanel::refresh);
  connect(&outline_, &BlockOutline::currentChanged, this, &BlockPanel::followCursor);
}

void BlockPanel::refresh() {
  model_->refresh();
}

void BlockPanel::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  followCursor();
}

// Only the blocks around the cursor are open.
void BlockPanel::followCursor() {
  if (!isVisible()) return;
  const TextBlock* block = outline_.blockAt(text_.cursorLine());
  const QModelIndex index =
      block == nullptr ? QModelIndex()
                       : model_->indexOf(static_cast<std::uint32_t>(block - outline_.blocks().data()));
  tree_->collapseAll();
  tree_->setCurrentIndex(index);
  tree_->setExpanded(index, true);
  tree_->scrollTo(index);
}

void BlockPanel::goTo(const QModelIndex& index) {
  if (index.isValid()) outline_.goTo(outline_.blocks()[index.internalId()]);
}

}  // namespace korvane
