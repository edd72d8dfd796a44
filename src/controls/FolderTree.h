// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QTreeView>

#include "controls/FolderModel.h"

namespace korvane {

class PathField;

// A tree of folders to choose one from. It starts with nothing selected; a folder that holds the game's
// program stands out. Ctrl+L, "/", "~" and the ":" of a drive open a field to type a path into.
class FolderTree : public QTreeView {
  Q_OBJECT

 public:
  explicit FolderTree(const QList<FolderPlace>& places, QWidget* parent = nullptr);

  // Opens the folders on the way, as they come from the disk, and selects the one at the path (of this
  // machine, with slashes), or the last of them that the tree can show.
  void reveal(const QString& native);

 Q_SIGNALS:
  // Another folder is selected now; the full path in the program's path text.
  void folderSelected(const QString& path);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  int sizeHintForColumn(int column) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  void closed(const QModelIndex& index);
  QString pathBegunWith(const QKeyEvent& event);
  void openPathField(const QString& text);
  void placePathField();
  QModelIndex placeOf(const QString& native) const;
  void revealOn();

  FolderModel* model_;
  PathField* pathField_;
  QString typed_;                  // since the last key that is no letter
  QPersistentModelIndex reached_;  // on the way to the folder to reveal
  QStringList toReveal_;           // the names still to come
  mutable int widest_ = 0;         // row seen so far
  QTimer layoutTimer_;
};

}  // namespace korvane
