// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>

#include <vector>

#include "search/SearchRows.h"

namespace korvane {

class SearchModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  void setRows(std::vector<SearchRow> rows);
  const SearchRow& row(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  std::vector<SearchRow> rows_;
};

// Draws a row: a badge with the kind's first letters, the name with its matching letters bold, the kind, and
// at the right where it stands.
class SearchDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace korvane
