// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QTreeView>

#include "controls/FolderModel.h"

namespace korvane {

// A tree of folders to choose one from. It starts with nothing selected; a folder that holds the game's
// program stands out.
class FolderTree : public QTreeView {
  Q_OBJECT

 public:
  explicit FolderTree(const QList<FolderPlace>& places, QWidget* parent = nullptr);

 Q_SIGNALS:
  // Another folder is selected now; the full path in the program's path text.
  void folderSelected(const QString& path);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void resizeEvent(QResizeEvent* event) override;
  int sizeHintForColumn(int column) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  void closed(const QModelIndex& index);

  FolderModel* model_;
  mutable int widest_ = 0;  // row seen so far
  QTimer layoutTimer_;
};

}  // namespace korvane
