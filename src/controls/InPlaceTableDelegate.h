// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace korvane {

class InPlaceTableModel;

// Draws the cells of an in-place table and makes their editors: a line to type in, or the row's choices in a
// box that can be typed into.
class InPlaceTableDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  InPlaceTableDelegate(const InPlaceTableModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& cell) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& cell) const override;
  void setEditorData(QWidget* editor, const QModelIndex& cell) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& cell) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& cell) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& cell) const override;

 private:
  QWidget* createChoiceBox(QWidget* parent, const QModelIndex& cell) const;

  const InPlaceTableModel& model_;
};

}  // namespace korvane
