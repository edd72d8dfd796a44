// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/FieldSources.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>

#include <algorithm>
#include <array>

#include "app/ManualEditRequest.h"
#include "app/Services.h"
#include "controls/MaskedField.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"
#include "mainwindow/UnitFields.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

struct KeyOfField {
  QLineEdit* UnitFields::*field;
  std::string_view key;
};
constexpr std::array kKeys = {
    KeyOfField{&UnitFields::MHealth, "MaxHealth"},
    KeyOfField{&UnitFields::IHealth, "InitialHealth"},
    KeyOfField{&UnitFields::TxtCost, "BuildCost"},
    KeyOfField{&UnitFields::TxtBS, "BuildTime"},
    KeyOfField{&UnitFields::TxtVisRange, "VisionRange"},
    KeyOfField{&UnitFields::TxtSCR, "ShroudClearingRange"},
};

bool Holds(const QComboBox& list, const QWidget* field) {
  return &list == field || list.lineEdit() == field;
}

}  // namespace

std::optional<Field> FieldSources::weaponField(const QWidget* field) const {
  const std::array lists = {fields_.PWeapon, fields_.SWeapon, fields_.TWeapon};
  const auto* found = std::ranges::find_if(lists, [&](const QComboBox* each) { return Holds(*each, field); });
  const int set = fields_.Conditions->currentIndex();
  const std::vector<std::string>& sets = parser_.WeaponSetTexts();
  if (found == lists.end() || set < 0 || static_cast<std::size_t>(set) >= sets.size()) return std::nullopt;
  const auto index = static_cast<std::size_t>(set);
  return WeaponField{index, Join(SParse::ParameterValues("Conditions", sets[index]), {}),
                     static_cast<std::size_t>(found - lists.begin())};
}

std::optional<Field> FieldSources::fieldOfObject(const QWidget* field) const {
  const auto* key =
      std::ranges::find_if(kKeys, [&](const KeyOfField& each) { return fields_.*each.field == field; });
  if (key != kKeys.end()) return ObjectField(key->key);
  if (Holds(*fields_.CboArmour, field)) return ObjectField("Armor");
  const int tab = fields_.LocoTab->currentIndex();
  if (Holds(*fields_.CboLocomotor, field) && tab >= 0)
    return LocomotorField{static_cast<std::size_t>(tab), static_cast<std::size_t>(fields_.LocoTab->count())};
  return weaponField(field);
}

std::optional<std::size_t> FieldSources::handlingNumber(const QWidget* field) const {
  const auto* found = std::ranges::find(fields_.HS_TextBox, field);
  if (found == fields_.HS_TextBox.end()) return std::nullopt;
  return static_cast<std::size_t>(found - fields_.HS_TextBox.begin());
}

ShownField FieldSources::inObject(const SelectedObject& object, std::optional<Field> field) const {
  const QString file = DataFilePath(folders_, DataFolder::ini, QString::fromStdString(object.file));
  return {file, {"Object", object.name}, std::move(field)};
}

std::optional<ShownField> FieldSources::of(const SelectedObject& object, const QWidget* field) const {
  if (const auto number = handlingNumber(field)) {
    const QString file = DataFilePath(folders_, DataFolder::ini, QString::fromUtf8(kLocomotorFile));
    // A name that was typed over it has changed nothing of what is shown.
    const QString name = typed_.readText(fields_.CboLocomotor->lineEdit());
    return ShownField{file, {"Locomotor", ToBytes(name)}, HandlingField(*number)};
  }
  const std::optional<Field> found = fieldOfObject(field);
  if (!found) return std::nullopt;
  return inObject(object, found);
}

TypedValue FieldSources::typedValue(const SelectedObject& object, const TypedMarks::Typed& typed) const {
  const auto number = handlingNumber(typed.field);
  const auto shown = of(object, typed.field).value_or(inObject(object, {}));
  TypedValue value{typed.field->accessibleName(), shown, typed.field->text()};
  if (!number) return value;
  const MaskedField& masked = *fields_.HS_TextBox[*number];
  value.value = masked.clipText();
  if (!masked.isMasked(typed.before)) value.fault = "the value in the file does not fit the field's mask";
  if (!masked.isMasked(masked.displayText())) value.fault = "what is typed does not fit the field's mask";
  return value;
}

std::vector<TypedValue> FieldSources::typedOf(const SelectedObject& object) const {
  std::vector<TypedValue> values;
  for (const TypedMarks::Typed& typed : typed_.typed()) values.push_back(typedValue(object, typed));
  return values;
}

}  // namespace korvane
