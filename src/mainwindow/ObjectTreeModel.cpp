// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ObjectTreeModel.h"

#include <algorithm>

#include "controls/ShownText.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

bool IsTop(const ObjectNode& node) {
  return node.parent == nullptr || node.parent->parent == nullptr;
}

QString KeyOf(const QString& path, const QString& name) {
  return (path + '\n' + name).toLower();
}

}  // namespace

bool ObjectTreeModel::addNode(const TreeEntry& entry) {
  ObjectNode* parent = &root_;
  if (!entry.parentKey.empty()) {
    const auto found = groups_.find(ToLowerAscii(entry.parentKey));
    if (found == groups_.end()) return false;
    parent = found->second;
  }
  const int row = static_cast<int>(parent->children.size());
  beginInsertRows(indexOf(*parent), row, row);
  parent->children.push_back(std::make_unique<ObjectNode>(ObjectNode{std::string(entry.key),
                                                                     std::string(entry.text),
                                                                     std::string(entry.tag),
                                                                     entry.kind,
                                                                     std::string(entry.file),
                                                                     parent,
                                                                     row,
                                                                     {}}));
  endInsertRows();
  if (entry.kind == NodeKind::group || entry.kind == NodeKind::file)
    groups_[ToLowerAscii(entry.key)] = parent->children.back().get();
  return true;
}

const ObjectNode* ObjectTreeModel::node(const QModelIndex& index) const {
  return index.isValid() ? static_cast<const ObjectNode*>(index.constInternalPointer()) : nullptr;
}

QModelIndex ObjectTreeModel::find(const QString& path, const QString& name) const {
  const std::function<const ObjectNode*(const ObjectNode&)> findBelow = [&](const ObjectNode& above) {
    for (const auto& child : above.children) {
      const bool isObject = child->kind == NodeKind::object || child->kind == NodeKind::listed;
      const bool fits = isObject && name.compare(FromBytes(child->text), Qt::CaseInsensitive) == 0 &&
                        path.endsWith(QString::fromStdString(child->file), Qt::CaseInsensitive);
      if (fits) return static_cast<const ObjectNode*>(child.get());
      if (const ObjectNode* found = findBelow(*child)) return found;
    }
    return static_cast<const ObjectNode*>(nullptr);
  };
  const ObjectNode* found = findBelow(root_);
  return found == nullptr ? QModelIndex() : indexOf(*found);
}

QString ObjectTreeModel::shownText(const ObjectNode& node) {
  return node.kind == NodeKind::file ? ShownText(QString::fromStdString(node.text)) : ShownName(node.text);
}

QString ObjectTreeModel::fullPath(const ObjectNode& node) {
  const QString text = shownText(node);
  return IsTop(node) ? text : fullPath(*node.parent) + u'\\' + text;
}

QModelIndex ObjectTreeModel::index(int row, int column, const QModelIndex& parent) const {
  const ObjectNode& above = nodeOrRoot(parent);
  if (column != 0 || row < 0 || row >= static_cast<int>(above.children.size())) return {};
  return createIndex(row, 0, above.children[static_cast<std::size_t>(row)].get());
}

QModelIndex ObjectTreeModel::parent(const QModelIndex& index) const {
  const ObjectNode* child = node(index);
  return child == nullptr ? QModelIndex() : indexOf(*child->parent);
}

int ObjectTreeModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(nodeOrRoot(parent).children.size());
}

int ObjectTreeModel::columnCount(const QModelIndex& /*parent*/) const {
  return 1;
}

QVariant ObjectTreeModel::data(const QModelIndex& index, int role) const {
  const ObjectNode* shown = node(index);
  if (shown == nullptr) return {};
  switch (role) {
    case Qt::DisplayRole:
      return shownText(*shown);
    case signsRole:
      return signsOf(*shown);
    case Qt::ToolTipRole:
      return PlainToolTip(tipOf(*shown));
    case Qt::AccessibleDescriptionRole:
      return tipOf(*shown);
    default:
      return {};
  }
}

void ObjectTreeModel::setErrors(const std::vector<ObjectErrors>& objects) {
  errors_.clear();
  for (const ObjectErrors& object : objects) errors_[KeyOf(object.path, object.name)] = object.texts;
  tellSigns();
}

void ObjectTreeModel::setChanges(const std::vector<ObjectChange>& objects) {
  changes_.clear();
  for (const ObjectChange& object : objects) changes_[KeyOf(object.path, object.name)] = object.text;
  tellSigns();
}

void ObjectTreeModel::tellSigns() {
  if (rowCount() > 0) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

QString ObjectTreeModel::textOf(const Texts& texts, const ObjectNode& node) {
  const bool isObject = node.kind == NodeKind::object || node.kind == NodeKind::listed;
  if (!isObject || texts.isEmpty()) return {};
  return texts.value(KeyOf(QString::fromStdString(node.file), FromBytes(node.text)));
}

QStringList ObjectTreeModel::signsOf(const ObjectNode& node) const {
  QStringList signNames;
  if (!textOf(errors_, node).isEmpty()) signNames += "error";
  if (!textOf(changes_, node).isEmpty()) signNames += "changed";
  return signNames;
}

QString ObjectTreeModel::tipOf(const ObjectNode& node) const {
  QStringList texts{textOf(errors_, node), textOf(changes_, node)};
  texts.removeAll({});
  return texts.join('\n');
}

bool ObjectTreeModel::hasChanges(const QModelIndex& index) const {
  return hasChanges(nodeOrRoot(index));
}

bool ObjectTreeModel::hasChanges(const ObjectNode& node) const {
  return !textOf(changes_, node).isEmpty() ||
         std::ranges::any_of(node.children, [this](const auto& child) { return hasChanges(*child); });
}

Qt::ItemFlags ObjectTreeModel::flags(const QModelIndex& index) const {
  const ObjectNode* shown = node(index);
  if (shown == nullptr) return Qt::NoItemFlags;
  return shown->children.empty() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                                 : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

const ObjectNode& ObjectTreeModel::nodeOrRoot(const QModelIndex& index) const {
  const ObjectNode* found = node(index);
  return found == nullptr ? root_ : *found;
}

QModelIndex ObjectTreeModel::indexOf(const ObjectNode& node) const {
  return node.parent == nullptr ? QModelIndex() : createIndex(node.row, 0, &node);
}

bool IsObjectNode(const ObjectNode& node) {
  return node.kind == NodeKind::object && !node.text.empty();
}

const ObjectNode* Grandparent(const ObjectNode& node) {
  if (IsTop(node) || IsTop(*node.parent)) return nullptr;
  return node.parent->parent;
}

}  // namespace korvane
