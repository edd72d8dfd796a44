// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QDockWidget>

#include <cstdint>
#include <memory>
#include <vector>

#include "controls/ScreenReaders.h"

class QTreeView;

namespace korvane {

class BlockOutline;
struct TextBlock;

// The blocks of the outline as a tree. An item's number is its block's.
class BlockModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  explicit BlockModel(BlockOutline& outline);

  // None for a block that is none of these: the outline has been read again since.
  QModelIndex indexOf(const TextBlock* block) const;
  const TextBlock* blockOf(const QModelIndex& index) const;
  void refresh();

  QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex&) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int, Qt::Orientation orientation, int role) const override {
    return UnseenHeading("Blocks", orientation, role);
  }

 private:
  QModelIndex indexAt(std::uint32_t block) const;
  const std::vector<std::uint32_t>& childrenOf(const QModelIndex& parent) const;

  BlockOutline& outline_;
  std::shared_ptr<const std::vector<TextBlock>> blocks_;
  std::vector<std::uint32_t> top_;
  std::vector<std::vector<std::uint32_t>> children_;  // of each block
  std::vector<int> rows_;                             // of each block among its siblings
};

// The file's blocks beside the text, those of the current block opened. It follows the cursor; a click or
// Enter goes to a block.
class BlockPanel : public QDockWidget {
  Q_OBJECT

 public:
  BlockPanel(BlockOutline& outline, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void refresh();
  void followCursor();
  void goTo(const QModelIndex& index);

  BlockOutline& outline_;
  BlockModel* model_;
  QTreeView* tree_;
};

}  // namespace korvane
