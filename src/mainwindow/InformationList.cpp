// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/InformationList.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QTabBar>

#include <array>
#include <cmath>
#include <optional>

#include "controls/InPlaceTable.h"
#include "controls/MaskedField.h"
#include "mainwindow/UnitFields.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

const QString kNothing = QStringLiteral("N/A");
const QString kSeparator = FromBytes(kSeparatorCaption);
constexpr int kNameWidth = 3440;  // twips
constexpr int kValueWidth = 7440;
constexpr int kFontSize = 11;    // points
constexpr int kCentsLength = 3;  // the point and two decimals

constexpr bool BlankFollows(std::size_t field) {
  return field == 0 || field == 2 || field == 4 || field == 6;
}

// Tabs are text, as they are to the parser.
bool IsBlank(const QString& text) {
  return text.count(u' ') == text.size();
}

QString ValueOf(const QString& text) {
  return IsBlank(text) ? kNothing : text;
}

QString AsCurrency(const QString& text) {
  bool isNumber = false;
  double amount = text.toDouble(&isNumber);
  if (!isNumber) amount = QLocale().toDouble(text, &isNumber);
  return isNumber && std::isfinite(amount) ? QLocale().toCurrencyString(amount) : text;
}

// The cost without its cents, or nothing when the text is too short to lose them.
std::optional<QString> CostOf(const QString& text) {
  if (IsBlank(text)) return kNothing;
  const QString currency = AsCurrency(text);
  if (currency.size() < kCentsLength) return std::nullopt;
  return currency.chopped(kCentsLength);
}

QString HandlingValue(const MaskedField& field) {
  if (field.fullText().isEmpty()) return kNothing;
  const QString unit = field.fullText().section(u' ', 1, 1);
  return unit.isEmpty() ? field.clipText() : field.clipText() + u' ' + unit;
}

}  // namespace

void InformationList::prepare() {
  fields_.LstInfo->addColumn("Name", kNameWidth);
  fields_.LstInfo->addColumn("Value", kValueWidth);
  fields_.LstInfo->setFontSize(kFontSize);
}

void InformationList::UpdateLV() {
  fields_.LstInfo->clearRows();
  addRow("Name", objectName_());
  addSeparator();
  Stage1Update();
  Stage2LocomotorUpdate();
  Stage3Update();
  fields_.LstInfo->setAllCaptionsRedAndBold();
  fields_.LstInfo->finish();
}

void InformationList::Stage1Update() {
  addRow("Initial Health", ValueOf(fields_.IHealth->text()));
  addRow("Max Health", ValueOf(fields_.MHealth->text()));
  addBlank();
  const std::optional<QString> cost = CostOf(fields_.TxtCost->text());
  if (!cost) {
    fields_.LstInfo->addRow("Cost");
    return;
  }
  addRow("Cost", *cost);
  addRow("Build Speed", ValueOf(fields_.TxtBS->text()));
  addSeparator();
  addRow("Shroud Clearing Range", ValueOf(fields_.TxtSCR->text()));
  addRow("Vision Range", ValueOf(fields_.TxtVisRange->text()));
  addSeparator();
  addBlank();
  addRow("Primary Weapon", ValueOf(fields_.PWeapon->currentText()));
  addRow("Secondary Weapon", ValueOf(fields_.SWeapon->currentText()));
  addRow("Tertiary Weapon", ValueOf(fields_.TWeapon->currentText()));
}

void InformationList::Stage2LocomotorUpdate() {
  if (fields_.LocoTab->count() == 0) return;
  QStringList captions;
  for (int i = 0; i < fields_.LocoTab->count(); ++i) captions += TabCaption(*fields_.LocoTab, i);
  addBlank();
  addRow("Locomotor", fields_.CboLocomotor->currentText().isEmpty() ? kNothing : captions.join(", "));
}

void InformationList::Stage3Update() {
  addSeparator();
  for (std::size_t i = 0; i < kHandlingLabels.size(); ++i) {
    const MaskedField& field = *fields_.HS_TextBox[i];
    addRow(kHandlingLabels[i], HandlingValue(field));
    if (!field.fullText().isEmpty() && BlankFollows(i)) addBlank();
  }
}

void InformationList::addRow(const QString& caption, const QString& value) {
  fields_.LstInfo->addRow(caption);
  fields_.LstInfo->setValue(value, EditKind::none);
}

void InformationList::addSeparator() {
  addRow(kSeparator, kSeparator);
}

void InformationList::addBlank() {
  fields_.LstInfo->addRow({});
}

}  // namespace korvane
