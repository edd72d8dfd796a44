// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/FrmArmour.h"

#include <QMenu>
#include <QMenuBar>

#include <array>

#include "app/UnitChoices.h"

namespace korvane {

namespace {

constexpr std::array kFileMenu = {"Test"};

}  // namespace

FrmArmour::FrmArmour(const TableEditorContext& context) : TableEditor(kArmourEditor, context) {
  commands().add("Test", "&Test", {}, [this] { Q_EMIT damageTypesAsked(); });
  FillMenu(*menuBar()->findChild<QMenu*>("MnuFile"), commands(), kFileMenu);
}

void FrmArmour::addDamageType(const QString& type) {
  table().addRow(type);
  table().scrollToBottom();
}

bool FrmArmour::selectsFirst() const {
  return !context().units.armourChosen();
}

}  // namespace korvane
