// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/InPlaceTableModel.h"

#include <utility>

#include "platform/TextEncoding.h"

namespace korvane {

namespace {

const QString kSeparator = FromBytes(kSeparatorCaption);

}  // namespace

void InPlaceTableModel::addColumn(const QString& caption) {
  const int column = static_cast<int>(columns_.size());
  beginInsertColumns({}, column, column);
  columns_ << caption;
  endInsertColumns();
}

void InPlaceTableModel::clear() {
  next_.clear();
  collecting_ = true;
}

void InPlaceTableModel::addRow(const QString& caption) {
  if (collecting_) {
    next_.push_back({.caption = caption});
    return;
  }
  const int row = rowCount();
  beginInsertRows({}, row, row);
  shown_.push_back({.caption = caption});
  endInsertRows();
}

void InPlaceTableModel::setValue(const QString& text, EditKind kind) {
  if (rows().empty()) return;
  rows().back().value = text;
  rows().back().kind = kind;
  newestChanged();
}

void InPlaceTableModel::setChoices(ChoiceList choices) {
  if (rows().empty()) return;
  rows().back().choices = std::move(choices);
  rows().back().kind = EditKind::choice;  // offered even where the row has no value yet
  newestChanged();
}

void InPlaceTableModel::markCaptions() {
  for (Row& row : rows()) row.redAndBold = true;
  if (!collecting_ && !shown_.empty())
    Q_EMIT dataChanged(index(0, kCaption), index(rowCount() - 1, kCaption));
}

void InPlaceTableModel::show() {
  if (!collecting_) return;
  beginResetModel();
  std::swap(shown_, next_);
  collecting_ = false;
  endResetModel();
}

void InPlaceTableModel::newestChanged() {
  if (collecting_) return;
  const QModelIndex newest = index(rowCount() - 1, kValue);
  Q_EMIT dataChanged(newest, newest);
}

bool InPlaceTableModel::isSeparator(int row) const {
  return shownRow(row).caption == kSeparator;
}

bool InPlaceTableModel::isEditable(const QModelIndex& cell) const {
  return cell.column() == kValue && shownRow(cell.row()).kind != EditKind::none;
}

int InPlaceTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int InPlaceTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant InPlaceTableModel::data(const QModelIndex& cell, int role) const {
  if (!cell.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
  const Row& row = shownRow(cell.row());
  return cell.column() == kCaption ? row.caption : row.value;
}

bool InPlaceTableModel::setData(const QModelIndex& cell, const QVariant& text, int role) {
  if (role != Qt::EditRole || !cell.isValid() || !isEditable(cell)) return false;
  shown_[static_cast<std::size_t>(cell.row())].value = text.toString();
  Q_EMIT dataChanged(cell, cell);
  return true;
}

QVariant InPlaceTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
  return role == Qt::DisplayRole ? columns_.value(section) : QVariant();
}

Qt::ItemFlags InPlaceTableModel::flags(const QModelIndex& cell) const {
  if (!cell.isValid() || isSeparator(cell.row())) return Qt::NoItemFlags;
  const Qt::ItemFlags reachable = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  return isEditable(cell) ? reachable | Qt::ItemIsEditable : reachable;
}

}  // namespace korvane
