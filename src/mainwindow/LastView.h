// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QModelIndex>
#include <QStringList>

#include <functional>

class QTreeView;

namespace korvane {

class ObjectTreeModel;
class SettingsStore;
class UnitFields;

// What the main window showed when the program was last ended: the selected node, the expanded groups, the
// tab, and the first row that was seen of the information list. Nodes are known by the texts on the way to
// them, since keys change with the files. What is stored and no longer there is passed over.
class LastView {
 public:
  LastView(SettingsStore& settings, QTreeView& tree, const ObjectTreeModel& objects, const UnitFields& fields)
      : settings_(settings), tree_(tree), objects_(objects), fields_(fields) {}

  void save() const;
  // Nothing unless the user wants it. `select` shows a node as a click does.
  void restore(const std::function<void(const QModelIndex&)>& select) const;

 private:
  using Visit = std::function<void(const QModelIndex& group, const QString& path)>;
  // All that is in a group, `path` standing for the group itself.
  void forEachBelow(const QModelIndex& group, const QString& path, const Visit& visit) const;
  QString pathOf(const QModelIndex& index) const;
  QStringList expandedGroups() const;
  QModelIndex expandAndFind(const QStringList& expanded, const QString& selected) const;
  void restoreTabAndRow() const;

  SettingsStore& settings_;
  QTreeView& tree_;
  const ObjectTreeModel& objects_;
  const UnitFields& fields_;
};

}  // namespace korvane
