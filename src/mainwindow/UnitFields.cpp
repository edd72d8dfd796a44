// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/UnitFields.h"

#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <initializer_list>

#include "controls/Icons.h"
#include "controls/InPlaceTable.h"
#include "controls/MaskedField.h"
#include "controls/Named.h"
#include "controls/RowLink.h"

namespace korvane {

namespace {

struct HandlingField {
  const char* label;
  const char* mask;
};

constexpr std::array<HandlingField, kHandlingFields> kHandling = {{
    {"Surfaces:", ""},
    {"Top Speed:", "#### dist/sec"},
    {"Top Speed When Damaged:", "#### dist/sec"},
    {"Turn Rate:", "#### degrees/sec"},
    {"Turn Rate   When Damaged:", "#### degrees/sec"},
    {"Acceleration:", "#### dist/(sec^2)"},
    {"Acceleration When Damaged:", "#### dist/(sec^2)"},
    {"Braking:", "####### dist/(sec^2)"},
    {"Min Turn Speed:", "#### dist/sec"},
}};

constexpr int kFieldWidth = 220;  // device-independent pixels; less where captions need the place
constexpr int kLeastListWidth = 120;
constexpr int kLeastListHeight = 120;
constexpr int kCaptionMargin = 8;
constexpr int kListEntryWidth = 34;  // characters

template <typename Field>
class WideField : public Field {
 public:
  QSize sizeHint() const override { return Field::sizeHint().expandedTo({kFieldWidth, 0}); }
};

QLineEdit* TextField(const char* name) {
  return Named(name, new WideField<QLineEdit>);
}

QComboBox* List(const char* name, bool editable) {
  auto* list = Named(name, new QComboBox);
  list->setEditable(editable);
  // Completing in the field itself would show a text that was never typed.
  if (editable) list->completer()->setCompletionMode(QCompleter::PopupCompletion);
  list->setInsertPolicy(QComboBox::NoInsert);
  // Measuring every entry of a long list would cost more than reading the file it comes from.
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(kListEntryWidth);
  list->setMinimumWidth(kLeastListWidth);
  return list;
}

QPushButton* Button(const char* name, const char* caption) {
  return Named(name, new QPushButton(caption));
}

// Adds a row with the field alone, or with the layout that holds it.
template <typename Row>
void AddRow(QFormLayout* form, const char* caption, QWidget* field, Row* row) {
  auto* label = new QLabel(caption);
  label->setBuddy(field);
  field->setAccessibleName(QString(caption).chopped(1).simplified());
  if (auto* list = qobject_cast<QComboBox*>(field); list != nullptr && list->isEditable())
    list->lineEdit()->setAccessibleName(field->accessibleName());  // it has the focus
  form->addRow(label, row);
}

void AddField(QFormLayout* form, const char* caption, QWidget* field) {
  AddRow(form, caption, field, field);
}

// A field with a button to its right.
void AddFieldWithButton(QFormLayout* form, const char* caption, QWidget* field, QPushButton* button) {
  auto* row = new QHBoxLayout;
  row->setSpacing(10);
  row->addWidget(field);
  row->addWidget(button);
  row->addStretch();
  AddRow(form, caption, field, row);
  button->setAccessibleName(button->text().trimmed() + u' ' + field->accessibleName());
}

// Behind the row's last control.
QToolButton* Link(const char* name, const QWidget& field, QWidget& last) {
  auto* link = Named(name, new RowLink(last));
  link->setIcon(ThemeIcon("definition"));
  link->setToolTip("Go to Definition");
  link->setAccessibleName("Go to Definition " + field.accessibleName());
  link->setEnabled(false);  // until the field has a name
  return link;
}

QFormLayout* Form(QGroupBox* frame) {
  auto* form = new QFormLayout(frame);
  form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  form->setHorizontalSpacing(16);
  form->setVerticalSpacing(10);
  return form;
}

// The page can be scrolled where the window is too small for it.
QWidget* Scrolled(QWidget* page) {
  auto* area = new QScrollArea;
  area->setWidget(page);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  return area;
}

// A tab page of frames, one below the other. What is left at the bottom goes to `rest`, or stays free.
QWidget* Page(std::initializer_list<QWidget*> frames, QWidget* rest = nullptr) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(14, 14, 14, 14);
  layout->setSpacing(12);
  for (QWidget* frame : frames) layout->addWidget(frame);
  if (rest == nullptr) {
    layout->addStretch(1);
  } else {
    layout->addWidget(rest, 1);
  }
  return Scrolled(page);
}

// The arrows that scroll tabs; the tabs themselves have keys.
void KeepArrowsFromKeyboard(const QTabBar& tabs) {
  for (QToolButton* arrow : tabs.findChildren<QToolButton*>()) arrow->setFocusPolicy(Qt::NoFocus);
}

}  // namespace

UnitFields::UnitFields() : F_Tab(Named("F_Tab", new QTabWidget)), weapons(new QStringListModel(F_Tab)) {
  F_Tab->setAccessibleName("Values of the object");
  QFont captions = F_Tab->font();
  captions.setFamilies({"Verdana", captions.family()});
  F_Tab->tabBar()->setFont(captions);
  F_Tab->addTab(handlingTab(), "Handling and Speed");
  F_Tab->addTab(healthTab(), "Health and Armour");
  F_Tab->addTab(weaponsTab(), "Weapons");
  F_Tab->addTab(advancedTab(), "Advanced Options");
  F_Tab->addTab(costTab(), "Cost and Build Speed");
  F_Tab->addTab(informationTab(), "Information");
  F_Tab->addTab(otherTab(), "Other Settings");
  KeepArrowsFromKeyboard(*F_Tab->tabBar());
  KeepArrowsFromKeyboard(*LocoTab);
}

QWidget* UnitFields::handlingTab() {
  auto* frame = new QGroupBox("Handling And Speed");
  auto* form = Form(frame);
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);  // in a narrow window units are seen whole
  AddField(form, "Locomotor:", CboLocomotor = List("CboLocomotor", true));
  locomotorLink = Link("locomotorLink", *CboLocomotor, *CboLocomotor);
  LocoTab = Named("LocoTab", new QTabBar);
  LocoTab->setAccessibleName("Locomotors");
  LocoTab->setFocusPolicy(Qt::NoFocus);  // until it has tabs
  LocoTab->setDrawBase(true);
  LocoTab->setExpanding(false);
  LocoTab->setElideMode(Qt::ElideRight);
  form->addRow(LocoTab);
  for (std::size_t i = 0; i < kHandling.size(); ++i) addHandlingField(form, i);
  return Page({frame});
}

void UnitFields::addHandlingField(QFormLayout* form, std::size_t i) {
  auto* field = Named(qPrintable(QString("HS_TextBox%1").arg(i)), new WideField<MaskedField>);
  field->setMask(kHandling[i].mask);
  auto* clear = Button(qPrintable(QString("HS_ClearBtn%1").arg(i)), "Clear");
  clear->setToolTip("<< Deletes all text (if any)");
  clear->setMinimumWidth(clear->fontMetrics().horizontalAdvance(clear->text()) + 2 * kCaptionMargin);
  AddFieldWithButton(form, kHandling[i].label, field, clear);
  HS_TextBox[i] = field;
  HS_ClearBtn[i] = clear;
}

QWidget* UnitFields::healthTab() {
  auto* health = new QGroupBox("Health");
  auto* form = Form(health);
  AddField(form, "Max Health:", MHealth = TextField("MHealth"));
  AddField(form, "Initial Health:", IHealth = TextField("IHealth"));
  auto* armour = new QGroupBox("Armour");
  CboArmour = List("CboArmour", true);
  Command2 = Button("Command2", "Show Armour Editor");
  AddFieldWithButton(Form(armour), "Armour Type:", CboArmour, Command2);
  armourLink = Link("armourLink", *CboArmour, *Command2);
  return Page({health, armour});
}

QWidget* UnitFields::weaponsTab() {
  auto* frame = new QGroupBox("Weapons");
  auto* form = Form(frame);
  AddField(form, "Conditions:", Conditions = List("Conditions", false));
  PWeapon = List("PWeapon", true);
  SWeapon = List("SWeapon", true);
  TWeapon = List("TWeapon", true);
  for (QComboBox* list : {PWeapon, SWeapon, TWeapon}) list->setModel(weapons);
  AddFieldWithButton(form, "Primary Weapon:", PWeapon, PWeaponEdit = Button("PWeaponEdit", "Edit "));
  primaryLink = Link("primaryLink", *PWeapon, *PWeaponEdit);
  AddFieldWithButton(form, "Secondary Weapon:", SWeapon, SWeaponEdit = Button("SWeaponEdit", "Edit "));
  secondaryLink = Link("secondaryLink", *SWeapon, *SWeaponEdit);
  AddFieldWithButton(form, "Tertiary Weapon:", TWeapon, TWeaponEdit = Button("TWeaponEdit", "Edit "));
  tertiaryLink = Link("tertiaryLink", *TWeapon, *TWeaponEdit);
  return Page({frame});
}

QWidget* UnitFields::advancedTab() {
  auto* frame = new QGroupBox("Advanced Options");
  auto* layout = new QVBoxLayout(frame);
  layout->setSpacing(10);
  CmdME_FINI = Button("CmdME_FINI", "Manual Edit ");
  Btn_LEdit = Button("Btn_LEdit", "Manual Edit Handling And Speed");
  Btn_FEdit = Button("Btn_FEdit", "Manual Edit Appearance, Cost, Weapons And Strength");
  for (QPushButton* button : {CmdME_FINI, Btn_LEdit, Btn_FEdit}) layout->addWidget(button);
  return Page({frame});
}

QWidget* UnitFields::costTab() {
  auto* frame = new QGroupBox("Cost And Build Speed");
  auto* form = Form(frame);
  AddField(form, "Cost:", TxtCost = TextField("TxtCost"));
  AddField(form, "Build Speed:", TxtBS = TextField("TxtBS"));
  return Page({frame});
}

QWidget* UnitFields::informationTab() {
  auto* frame = new QGroupBox("Options");
  auto* form = Form(frame);
  AddField(form, "Locomotor:", CboLoco = List("CboLoco", false));
  AddField(form, "Weapon Conditions:", CondCombo = List("CondCombo", false));
  LstInfo = Named("LstInfo", new InPlaceTable);
  LstInfo->setAccessibleName("Information");
  LstInfo->setMinimumHeight(kLeastListHeight);
  return Page({frame}, LstInfo);
}

QWidget* UnitFields::otherTab() {
  auto* frame = new QGroupBox("Other Settings");
  auto* form = Form(frame);
  AddField(form, "Shroud Clearing Range:", TxtSCR = TextField("TxtSCR"));
  AddField(form, "Vision Range:", TxtVisRange = TextField("TxtVisRange"));
  return Page({frame});
}

QString TabCaption(const QTabBar& tabs, int tab) {
  return tabs.tabText(tab).replace("&&", "&");
}

void SetTabCaption(QTabBar& tabs, int tab, QString caption) {
  tabs.setTabText(tab, caption.replace("&", "&&"));
}

void ShowText(QComboBox& list, const QString& text) {
  list.setEditText(text);
  list.lineEdit()->setCursorPosition(0);
}

void ReplaceEntries(QComboBox& list, const QStringList& entries) {
  const QString text = list.currentText();
  const QSignalBlocker silent(list);
  list.clear();
  list.addItems(entries);  // which makes the first one the text
  list.setCurrentIndex(-1);
  list.setEditText(text);
}

void EmptyText(QComboBox& list) {
  const QSignalBlocker silent(list);
  list.setCurrentIndex(-1);
  list.setEditText({});
}

}  // namespace korvane
