// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ComparisonModel.h"

#include <algorithm>
#include <utility>

#include "app/Places.h"
#include "controls/ShownText.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

const QString kOutside = QStringLiteral("Outside of all blocks");

QString KindTitle(KindId kind) {
  return kind == kNoKind ? kOutside : KindName(kind);
}

QString Name(const ItemChange& change) {
  return change.name.empty() ? KindTitle(change.kind) : ShownName(change.name);
}

QString PlaceText(const SourceFile& file, std::uint32_t line) {
  return ShownPlace(PlaceOf(file, line, 1, 0));
}

QString ChangeText(bool before, bool now) {
  return before && now ? "changed" : now ? "added" : "removed";
}

QString KeyText(const KeyChange& change, int column) {
  const auto value = [](const std::optional<std::string>& text) {
    if (!text) return QString();
    return text->empty() ? QStringLiteral("(empty)") : ShownName(*text);
  };
  switch (column) {
    case ComparisonModel::itemColumn:
      return ShownName(change.key);
    case ComparisonModel::changeColumn:
      return ChangeText(change.former.has_value(), change.present.has_value());
    case ComparisonModel::originalColumn:
      return value(change.former);
    case ComparisonModel::modificationColumn:
      return value(change.present);
    default:
      return {};
  }
}

}  // namespace

// At most one of them is null in a valid row: a kind, its item, and the item's key.
struct ComparisonModel::Node {
  const Kind* kind = nullptr;
  const Item* item = nullptr;
  const KeyChange* key = nullptr;
};

void ComparisonModel::show(DataComparison::ResultPtr result, const ComparisonView& view) {
  beginResetModel();
  kinds_.clear();
  result_ = std::move(result);
  const auto has = [&view](const QString& text) { return text.contains(view.filter, Qt::CaseInsensitive); };
  const auto fits = [&](const ItemChange& change) {
    if (!view.states[static_cast<std::size_t>(change.state)]) return false;
    if (view.filter.isEmpty() || has(Name(change)) || has(KindTitle(change.kind)) || has(fileText(change)))
      return true;
    return std::ranges::any_of(change.keys, [&](const KeyChange& key) { return has(ShownName(key.key)); });
  };
  for (std::size_t i = 0; result_ != nullptr && i < result_->items.size(); ++i) {
    const ItemChange& each = result_->items[i];
    if (!fits(each)) continue;
    if (kinds_.empty() || kinds_.back()->items.front().change->kind != each.kind) {
      kinds_.push_back(
          std::make_unique<Kind>(Kind{KindTitle(each.kind), static_cast<int>(kinds_.size()), {}}));
    }
    Kind& kind = *kinds_.back();
    kind.items.push_back({&each, &kind, static_cast<int>(kind.items.size())});
  }
  endResetModel();
}

int ComparisonModel::shown() const {
  std::size_t count = 0;
  for (const auto& kind : kinds_) count += kind->items.size();
  return static_cast<int>(count);
}

// An index points to the row above it: a kind's to nothing, an item's to its kind's number, a key's to its
// item.
ComparisonModel::Node ComparisonModel::nodeOf(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const quintptr above = index.internalId();
  if (above == 0) return {kinds_[row].get()};
  if (above <= kinds_.size()) {
    const Kind& kind = *kinds_[above - 1];
    return {&kind, &kind.items[row]};
  }
  const auto& item = *static_cast<const Item*>(index.constInternalPointer());
  return {item.kind, &item, &item.change->keys[row]};
}

QModelIndex ComparisonModel::index(int row, int column, const QModelIndex& parent) const {
  if (column < 0 || column >= columnCount() || row < 0 || row >= rowCount(parent)) return {};
  const Node above = nodeOf(parent);
  if (above.kind == nullptr) return createIndex(row, column, quintptr{0});
  if (above.item == nullptr) return createIndex(row, column, static_cast<quintptr>(above.kind->row + 1));
  return createIndex(row, column, above.item);
}

QModelIndex ComparisonModel::parent(const QModelIndex& child) const {
  const Node node = nodeOf(child);
  if (node.key != nullptr) return createIndex(node.item->row, 0, static_cast<quintptr>(node.kind->row + 1));
  return node.item != nullptr ? createIndex(node.kind->row, 0, quintptr{0}) : QModelIndex();
}

int ComparisonModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(kinds_.size());
  if (parent.column() != 0) return 0;
  const Node node = nodeOf(parent);
  if (node.key != nullptr) return 0;
  return static_cast<int>(node.item != nullptr ? node.item->change->keys.size() : node.kind->items.size());
}

const ItemChange* ComparisonModel::itemAt(const QModelIndex& index) const {
  const Node node = nodeOf(index);
  return node.item == nullptr ? nullptr : node.item->change;
}

const KeyChange* ComparisonModel::keyAt(const QModelIndex& index) const {
  return nodeOf(index).key;
}

QString ComparisonModel::fileText(const ItemChange& change) const {
  return PlaceText(result_->fileOf(change), result_->lineOf(change));
}

QString ComparisonModel::itemText(const ItemChange& change, int column) const {
  switch (column) {
    case itemColumn:
      return Name(change);
    case changeColumn:
      return QString::fromUtf8(kItemStates[static_cast<std::size_t>(change.state)].data());
    case modificationColumn:
      return change.state == ItemState::changed && change.keys.empty() ? "spacing, order or comments"
                                                                       : QString();
    case fileColumn:
      return fileText(change);
    default:
      return {};
  }
}

QVariant ComparisonModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole) return {};
  const Node node = nodeOf(index);
  if (node.key != nullptr) return KeyText(*node.key, index.column());
  if (node.item != nullptr) return itemText(*node.item->change, index.column());
  if (node.kind == nullptr || index.column() != itemColumn) return {};
  return QStringLiteral("%1 (%2)").arg(node.kind->title).arg(node.kind->items.size());
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return QStringList{"Item", "Change", "Original", "Modification", "Where"}.value(section);
}

}  // namespace korvane
