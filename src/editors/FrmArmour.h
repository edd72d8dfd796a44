// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/TableEditor.h"

namespace korvane {

// The armour editor.
class FrmArmour : public TableEditor {
  Q_OBJECT

 public:
  explicit FrmArmour(const TableEditorContext& context);

  // Adds a row of the damage type, without a percentage, to the table.
  void addDamageType(const QString& type);

 Q_SIGNALS:
  // The dialog that offers the damage types is wanted.
  void damageTypesAsked();

 protected:
  bool selectsFirst() const override;
};

}  // namespace korvane
