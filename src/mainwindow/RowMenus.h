// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "app/Commands.h"

class QAbstractItemView;
class QMenu;
class QPoint;
class QTreeView;

namespace korvane {

class InPlaceTable;
class LaunchCommands;
class ObjectTreeModel;
struct ObjectNode;

// The context menus of the main window's tree and information list, and the keys that hold in only one of
// them.
class RowMenus {
 public:
  // `ofWindow`: the window's commands, which the menus may show too.
  RowMenus(QTreeView& tree, const ObjectTreeModel& model, InPlaceTable& list, LaunchCommands& launch,
           const Commands& ofWindow);

  void copyNodeName();
  void manualEdit();
  void copyRow();
  void copyRowName();
  void copyRowValue();

 private:
  QMenu& makeMenu(QAbstractItemView& view, const Commands& commands, std::span<const char* const> rows);
  void nameManualEdit();
  const ObjectNode* selectedNode() const;

  QTreeView& tree_;
  const ObjectTreeModel& model_;
  InPlaceTable& list_;
  LaunchCommands& launch_;
  Commands ofTree_;
  Commands ofList_;
};

}  // namespace korvane
