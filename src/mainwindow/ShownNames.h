// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <optional>

#include "app/NameSource.h"

class QTreeView;

namespace korvane {

class Commands;
class EditorLauncher;
class ObjectTreeModel;
class UnitFields;
struct ObjectNode;

// The names that the main window shows, and what leads from them to where they are defined and used: the link
// buttons beside the fields, the fields' context menus, and tooltips.
class ShownNames : public QObject {
 public:
  // `ofWindow`: the window's commands, which the context menus show.
  ShownNames(QTreeView& tree, const ObjectTreeModel& model, UnitFields& fields, const Commands& ofWindow,
             EditorLauncher& launcher);

  // In the tree, the field or the list that has the keyboard.
  std::optional<NameHere> nameHere() const;

  // Nothing for the nodes that are no object's.
  static std::optional<NameHere> nameOf(const ObjectNode* node);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void linkFields();
  void tellOfRows();
  std::optional<NameHere> nameInRow(int row) const;

  QTreeView& tree_;
  const ObjectTreeModel& model_;
  UnitFields& fields_;
  const Commands& ofWindow_;
  EditorLauncher& launcher_;
};

}  // namespace korvane
