// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QString>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/ObjectChange.h"
#include "app/ObjectErrors.h"
#include "catalogue/TreeEntry.h"
#include "controls/ScreenReaders.h"

namespace korvane {

// A node of the object tree; see TreeEntry for what the texts hold.
struct ObjectNode {
  std::string key;
  std::string text;
  std::string tag;
  NodeKind kind = NodeKind::group;
  std::string file;
  ObjectNode* parent = nullptr;
  int row = 0;
  std::vector<std::unique_ptr<ObjectNode>> children;
};

// The catalogue of every unit, building and prop, as the tree shows it.
class ObjectTreeModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  using QAbstractItemModel::QAbstractItemModel;

  // Appends a node as the last child of the node with the parent key, at the top level when that is empty.
  // Keys of parents are matched without regard to letter case. False when there is no such parent; objects
  // are none.
  bool addNode(const TreeEntry& entry);

  // Names of the drawings that stand beside an object's text (a list of texts). What they mean is told by the
  // tooltip, and to screen readers as the description.
  static constexpr int signsRole = Qt::UserRole;
  // Which objects have errors, in the place of those before.
  void setErrors(const std::vector<ObjectErrors>& objects);
  // Which objects are not the original's, in the place of those before.
  void setChanges(const std::vector<ObjectChange>& objects);
  // The object is not the original's, or a node has one below it.
  bool hasChanges(const QModelIndex& index) const;

  // The node of an index; nothing for the invalid index.
  const ObjectNode* node(const QModelIndex& index) const;

  // The first object of this name in the file; `path` is below the game folder, letter case does not matter.
  QModelIndex find(const QString& path, const QString& name) const;

  static QString shownText(const ObjectNode& node);
  // The texts from the root to the node, joined by backslashes.
  static QString fullPath(const ObjectNode& node);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int, Qt::Orientation orientation, int role) const override {
    return UnseenHeading("Objects", orientation, role);
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ObjectNode& nodeOrRoot(const QModelIndex& index) const;
  QModelIndex indexOf(const ObjectNode& node) const;

  using Texts = QHash<QString, QString>;  // by file and name in small letters
  static QString textOf(const Texts& texts, const ObjectNode& node);
  QStringList signsOf(const ObjectNode& node) const;
  QString tipOf(const ObjectNode& node) const;
  bool hasChanges(const ObjectNode& node) const;
  void tellSigns();

  ObjectNode root_;
  Texts errors_;
  Texts changes_;
  std::unordered_map<std::string, ObjectNode*> groups_;  // by key in small letters: all but objects
};

// True for an object that can be shown.
bool IsObjectNode(const ObjectNode& node);

// The parent of the parent, or nothing.
const ObjectNode* Grandparent(const ObjectNode& node);

}  // namespace korvane
