// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QString>

#include <array>
#include <vector>

#include "history/DataComparison.h"

namespace korvane {

// What of a comparison is shown.
struct ComparisonView {
  std::array<bool, kItemStates.size()> states{true, true, true};  // by ItemState
  QString filter{};                                               // a part of kind, name, key or file
};

// A comparison as a tree: kinds, their items, and the keys of changed items.
class ComparisonModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum Column { itemColumn, changeColumn, originalColumn, modificationColumn, fileColumn };

  using QAbstractItemModel::QAbstractItemModel;

  void show(DataComparison::ResultPtr result, const ComparisonView& view);

  // The item of its row, or of the row of one of its keys; nullptr for a kind.
  const ItemChange* itemAt(const QModelIndex& index) const;
  // nullptr for any other row.
  const KeyChange* keyAt(const QModelIndex& index) const;
  // How many items are shown.
  int shown() const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return fileColumn + 1; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Kind;
  // What an index below the top points to: the row above it.
  struct Item {
    const ItemChange* change;
    const Kind* kind;
    int row;  // in its kind
  };
  struct Kind {
    QString title;
    int row;
    std::vector<Item> items;
  };
  struct Node;

  Node nodeOf(const QModelIndex& index) const;
  QString itemText(const ItemChange& change, int column) const;
  QString fileText(const ItemChange& change) const;

  DataComparison::ResultPtr result_;
  std::vector<std::unique_ptr<Kind>> kinds_;
};

}  // namespace korvane
