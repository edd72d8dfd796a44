// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/InPlaceTableModel.h"

#include <QFont>

#include <algorithm>
#include <utility>

#include "platform/TextEncoding.h"

namespace korvane {

namespace {

const QString kSeparator = FromBytes(kSeparatorCaption);
const QString kTypedOnly = QStringLiteral("Not saved: typed here only");

QFont Italic() {
  QFont font;
  font.setItalic(true);
  return font;
}

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
  inserted_ = true;
  Q_EMIT typedChanged();
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
  inserted_ = false;
  endResetModel();
  Q_EMIT typedChanged();
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
  if (!cell.isValid()) return {};
  const Row& row = shownRow(cell.row());
  if (cell.column() == kValue && row.read && role == Qt::FontRole) return Italic();
  if (cell.column() == kValue && row.read && role == Qt::ToolTipRole) return kTypedOnly;
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return cell.column() == kCaption ? row.caption : row.value;
}

bool InPlaceTableModel::setData(const QModelIndex& cell, const QVariant& text, int role) {
  if (role != Qt::EditRole || !cell.isValid() || !isEditable(cell)) return false;
  Row& row = shown_[static_cast<std::size_t>(cell.row())];
  const QString before = row.read.value_or(row.value);
  row.value = text.toString();
  row.read = row.value == before ? std::nullopt : std::optional(before);
  Q_EMIT dataChanged(cell, cell);
  Q_EMIT typedChanged();
  return true;
}

void InPlaceTableModel::takeAsRead(int row) {
  shown_.at(static_cast<std::size_t>(row)).read.reset();
  Q_EMIT dataChanged(index(row, kValue), index(row, kValue));
  Q_EMIT typedChanged();
}

bool InPlaceTableModel::hasTyped() const {
  return inserted_ || std::ranges::any_of(shown_, [](const Row& row) { return row.read.has_value(); });
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
