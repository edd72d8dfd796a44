// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/TypedMarks.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>
#include <utility>

#include "controls/MaskedField.h"
#include "controls/NoticeBar.h"
#include "mainwindow/ObjectNotices.h"
#include "mainwindow/UnitFields.h"

namespace korvane {

namespace {

std::vector<QLineEdit*> WeaponFields(const UnitFields& fields) {
  return {fields.PWeapon->lineEdit(), fields.SWeapon->lineEdit(), fields.TWeapon->lineEdit()};
}

std::vector<QLineEdit*> HandlingFields(const UnitFields& fields) {
  std::vector<QLineEdit*> all(fields.HS_TextBox.begin(), fields.HS_TextBox.end());
  all.push_back(fields.CboLocomotor->lineEdit());
  return all;
}

std::vector<QLineEdit*> AllFields(const UnitFields& fields) {
  std::vector<QLineEdit*> all = {fields.MHealth,
                                 fields.IHealth,
                                 fields.TxtCost,
                                 fields.TxtBS,
                                 fields.TxtSCR,
                                 fields.TxtVisRange,
                                 fields.CboArmour->lineEdit()};
  for (const std::vector<QLineEdit*>& more : {WeaponFields(fields), HandlingFields(fields)})
    all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace

TypedMarks::TypedMarks(UnitFields& fields, NoticeBar& bar) : fields_(fields), bar_(bar) {
  for (QLineEdit* field : AllFields(fields)) {
    watched_.push_back({field, field->displayText()});
    connect(field, &QLineEdit::textChanged, this, [this, field] { changed(field); });
  }
}

TypedMarks::Watched& TypedMarks::watched(const QLineEdit* field) {
  return *std::ranges::find(watched_, field, &Watched::field);
}

void TypedMarks::changed(const QLineEdit* field) {
  if (reading_ > 0) return;
  Watched& each = watched(field);
  mark(each, field->displayText() != each.read);
  tell();
}

void TypedMarks::mark(Watched& field, bool isTyped) {
  if (std::exchange(field.isTyped, isTyped) == isTyped) return;
  QFont font;
  if (isTyped) {
    font = field.field->font();
    font.setItalic(true);
  }
  field.field->setFont(font);
  field.field->setToolTip(isTyped ? QStringLiteral("Not saved: typed here only") : QString());
}

void TypedMarks::tell() {
  bar_.clear(editNotices);  // said of what was typed before
  if (std::ranges::none_of(watched_, &Watched::isTyped)) return bar_.clear(typedNotices);
  Notice notice("What is typed here is not saved.");
  if (editInFile_) notice.say(" ").link("Edit in file", editInFile_);
  bar_.tell(typedNotices, {notice});
}

std::vector<TypedMarks::Typed> TypedMarks::typed() const {
  std::vector<Typed> all;
  for (const Watched& each : watched_) {
    if (each.isTyped) all.push_back({each.field, each.read});
  }
  return all;
}

void TypedMarks::takeAsRead(const QLineEdit* field) {
  Watched& each = watched(field);
  each.read = field->displayText();
  mark(each, false);
  tell();
}

QString TypedMarks::readText(const QLineEdit* field) const {
  const auto found = std::ranges::find(watched_, field, &Watched::field);
  return found == watched_.end() ? QString() : found->read;
}

TypedMarks::Reading TypedMarks::readsAll() {
  return {*this, AllFields(fields_)};
}
TypedMarks::Reading TypedMarks::readsArmour() {
  return {*this, {fields_.CboArmour->lineEdit()}};
}
TypedMarks::Reading TypedMarks::readsWeapons() {
  return {*this, WeaponFields(fields_)};
}
TypedMarks::Reading TypedMarks::readsHandling() {
  return {*this, HandlingFields(fields_)};
}

TypedMarks::Reading::Reading(TypedMarks& marks, std::vector<QLineEdit*> fields)
    : marks_(marks), fields_(std::move(fields)) {
  ++marks_.reading_;
}

TypedMarks::Reading::~Reading() {
  if (--marks_.reading_ > 0) return;
  for (const QLineEdit* field : fields_) {
    Watched& each = marks_.watched(field);
    each.read = field->displayText();
    marks_.mark(each, false);
  }
  marks_.tell();
}

}  // namespace korvane
