// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/UnitChoices.h"
#include "editors/TableEditor.h"

namespace korvane {

// The editors that need little beside their entry.

// The weapon editor: the weapons that the main window offers as a primary weapon.
class FrmWE : public TableEditor {
 public:
  explicit FrmWE(const TableEditorContext& context) : TableEditor(kWeaponEditor, context) {}

 protected:
  QStringList readNames() override { return context().units.weaponNames(); }
};

// The command button editor.
class FrmCmdBtn : public TableEditor {
 public:
  explicit FrmCmdBtn(const TableEditorContext& context) : TableEditor(kCommandButtonEditor, context) {}
};

}  // namespace korvane
