// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockPanel.h"

#include <QTreeView>

#include <functional>

#include "controls/Named.h"
#include "manualeditor/BlockOutline.h"

namespace korvane {

BlockModel::BlockModel(BlockOutline& outline)
    : QAbstractItemModel(&outline),
      outline_(outline),
      blocks_(std::make_shared<const std::vector<TextBlock>>()) {}

void BlockModel::refresh() {
  beginResetModel();
  blocks_ = outline_.keptBlocks();
  const auto& blocks = *blocks_;
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

QModelIndex BlockModel::indexAt(std::uint32_t block) const {
  return block < rows_.size() ? createIndex(rows_[block], 0, block) : QModelIndex();
}

QModelIndex BlockModel::indexOf(const TextBlock* block) const {
  const std::less_equal<const TextBlock*> upTo;
  const bool known = !blocks_->empty() && upTo(&blocks_->front(), block) && upTo(block, &blocks_->back());
  return known ? indexAt(static_cast<std::uint32_t>(block - blocks_->data())) : QModelIndex();
}

const TextBlock* BlockModel::blockOf(const QModelIndex& index) const {
  return index.isValid() ? &(*blocks_)[index.internalId()] : nullptr;
}

const std::vector<std::uint32_t>& BlockModel::childrenOf(const QModelIndex& parent) const {
  return parent.isValid() ? children_[parent.internalId()] : top_;
}

QModelIndex BlockModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, childrenOf(parent)[static_cast<std::size_t>(row)]);
}

QModelIndex BlockModel::parent(const QModelIndex& index) const {
  const TextBlock* block = blockOf(index);
  return block == nullptr ? QModelIndex() : indexAt(block->parent);
}

int BlockModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(childrenOf(parent).size());
}

QVariant BlockModel::data(const QModelIndex& index, int role) const {
  const bool shown = role == Qt::DisplayRole || role == Qt::ToolTipRole;
  const TextBlock* block = blockOf(index);
  return block == nullptr || !shown ? QVariant() : BlockOutline::captionOf(*block);
}

BlockPanel::BlockPanel(BlockOutline& outline, QWidget* parent)
    : QDockWidget("Blocks", parent),
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
  const QModelIndex index = model_->indexOf(outline_.current());
  tree_->collapseAll();
  tree_->setCurrentIndex(index);
  tree_->setExpanded(index, true);
  tree_->scrollTo(index);
}

void BlockPanel::goTo(const QModelIndex& index) {
  if (const TextBlock* block = model_->blockOf(index)) outline_.goTo(*block);
}

}  // namespace korvane
