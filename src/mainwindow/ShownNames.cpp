// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ShownNames.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "app/Commands.h"
#include "app/EditorLauncher.h"
#include "app/NameTips.h"
#include "controls/InPlaceTable.h"
#include "mainwindow/ObjectTreeModel.h"
#include "mainwindow/UnitFields.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

struct NamedField {
  QComboBox* UnitFields::*list;
  QToolButton* UnitFields::*link;
  std::string_view kind;
};
constexpr std::array kFields = {
    NamedField{&UnitFields::CboArmour, &UnitFields::armourLink, "Armor"},
    NamedField{&UnitFields::PWeapon, &UnitFields::primaryLink, "Weapon"},
    NamedField{&UnitFields::SWeapon, &UnitFields::secondaryLink, "Weapon"},
    NamedField{&UnitFields::TWeapon, &UnitFields::tertiaryLink, "Weapon"},
    NamedField{&UnitFields::CboLocomotor, &UnitFields::locomotorLink, "Locomotor"},
};

// The rows of the information list that show names.
constexpr std::array kRows = {
    std::pair{"Name", "Object"},
    std::pair{"Primary Weapon", "Weapon"},
    std::pair{"Secondary Weapon", "Weapon"},
    std::pair{"Tertiary Weapon", "Weapon"},
    std::pair{"Locomotor", "Locomotor"},
};

// Behind what the fields' own menu has.
constexpr const char* kFieldMenu[] = {"", "showInFile", "goToDefinition", "findUses"};

std::optional<NameHere> Named(const QString& name, std::string_view kind) {
  if (name.isEmpty()) return std::nullopt;
  return NameHere{name, GameStructure::get().space(kind)};
}

std::optional<NameHere> NameIn(const QComboBox& list, std::string_view kind) {
  return Named(list.currentText().trimmed(), kind);
}

bool HasKeyboard(const QComboBox& list) {
  return list.hasFocus() || (list.lineEdit() != nullptr && list.lineEdit()->hasFocus());
}

}  // namespace

ShownNames::ShownNames(QTreeView& tree, const ObjectTreeModel& model, UnitFields& fields,
                       const Commands& ofWindow, EditorLauncher& launcher)
    : tree_(tree), model_(model), fields_(fields), ofWindow_(ofWindow), launcher_(launcher) {
  TellOfNames(tree, launcher, [this](const QModelIndex& entry) { return nameOf(model_.node(entry)); });
  linkFields();
  tellOfRows();
}

void ShownNames::linkFields() {
  for (const NamedField& each : kFields) {
    QComboBox& list = *(fields_.*each.list);
    QToolButton& link = *(fields_.*each.link);
    const auto name = [&list, kind = each.kind] { return NameIn(list, kind); };
    connect(&link, &QToolButton::clicked, this, [this, name] {
      if (const auto here = name()) launcher_.showDefinition(*here);
    });
    // The list is silent while its entries are read, its line never.
    connect(list.lineEdit(), &QLineEdit::textChanged, &link,
            [&link, &list] { link.setEnabled(!list.currentText().trimmed().isEmpty()); });
    for (QWidget* widget : {static_cast<QWidget*>(&list), static_cast<QWidget*>(list.lineEdit())}) {
      widget->installEventFilter(this);
      TellOfName(*widget, launcher_, name);
    }
    TellOfName(link, launcher_, name);
  }
}

void ShownNames::tellOfRows() {
  TellOfNames(*fields_.LstInfo, launcher_, [this](const QModelIndex& cell) { return nameInRow(cell.row()); });
  TellOfName(*fields_.CboLoco, launcher_, [this] { return NameIn(*fields_.CboLoco, "Locomotor"); });
}

std::optional<NameHere> ShownNames::nameOf(const ObjectNode* node) {
  const bool isObject = node != nullptr && (node->kind == NodeKind::object || node->kind == NodeKind::listed);
  return isObject ? Named(FromBytes(node->text), "Object") : std::nullopt;
}

std::optional<NameHere> ShownNames::nameHere() const {
  if (tree_.hasFocus()) return nameOf(model_.node(tree_.selectionModel()->selectedIndexes().value(0)));
  for (const NamedField& each : kFields) {
    const QComboBox& list = *(fields_.*each.list);
    if (HasKeyboard(list) || (fields_.*each.link)->hasFocus()) return NameIn(list, each.kind);
  }
  if (fields_.CboLoco->hasFocus()) return NameIn(*fields_.CboLoco, "Locomotor");
  if (fields_.LocoTab->hasFocus())
    return Named(TabCaption(*fields_.LocoTab, fields_.LocoTab->currentIndex()), "Locomotor");
  const QModelIndex cell = fields_.LstInfo->currentIndex();
  return fields_.LstInfo->hasFocus() && cell.isValid() ? nameInRow(cell.row()) : std::nullopt;
}

// A row may show several; the first is the one at hand.
std::optional<NameHere> ShownNames::nameInRow(int number) const {
  const InPlaceTableModel::Row& row = fields_.LstInfo->row(number);
  const auto* found =
      std::ranges::find_if(kRows, [&](const auto& each) { return row.caption == each.first; });
  const QString name = row.value.section(", ", 0, 0);
  return found == kRows.end() || name == "N/A" ? std::nullopt : Named(name, found->second);
}

// The field's own menu with the commands for names behind its entries.
bool ShownNames::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(watched, event);
  auto* line = qobject_cast<QLineEdit*>(watched);
  if (const auto* list = qobject_cast<QComboBox*>(watched)) line = list->lineEdit();
  QMenu* menu = line->createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName("menuField");
  FillMenu(*menu, ofWindow_, kFieldMenu);
  menu->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
  return true;
}

}  // namespace korvane
