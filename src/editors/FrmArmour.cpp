// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/FrmArmour.h"

#include <QMenu>

#include "app/UnitChoices.h"

namespace korvane {

FrmArmour::FrmArmour(const TableEditorContext& context) : TableEditor(kArmourEditor, context) {
  fileMenu().addAction("&Test", this, &FrmArmour::damageTypesAsked)->setObjectName("Test");
}

void FrmArmour::addDamageType(const QString& type) {
  table().addRow(type);
  table().scrollToBottom();
}

bool FrmArmour::selectsFirst() const {
  return !context().units.armourChosen();
}

}  // namespace korvane
