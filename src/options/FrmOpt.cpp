// SPDX-License-Identifier: GPL-3.0-or-later
#include "options/FrmOpt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "controls/FontDialog.h"
#include "controls/Icons.h"
#include "controls/StoredFont.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

// In the order of the main window's tabs.
constexpr const char* kTabs[] = {"Handling and Speed", "Health and Armour",    "Weapons",
                                 "Advanced Options",   "Cost and Build Speed", "Information",
                                 "Other Settings"};
constexpr int kInformationTab = 5;

constexpr const char* kFontCaptions[] = {
    "Font:", "Font Size:", "Bold:", "Underline:", "Italic:", "Strike-out:"};
// The settings that the font labels show, in the labels' order.
constexpr const char* kFontSettings[] = {kTreeFont.family,    kTreeFont.size,   kTreeFont.bold,
                                         kTreeFont.underline, kTreeFont.italic, kTreeFont.strikeOut};

QPushButton* Button(const char* name, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

// A page of the tab box with one frame that holds the widgets, one below the other.
QWidget* Page(const char* frameName, const QString& accessibleName, const QList<QWidget*>& widgets) {
  auto* frame = new QGroupBox;
  frame->setObjectName(frameName);
  frame->setAccessibleName(accessibleName);
  auto* column = new QVBoxLayout(frame);
  for (QWidget* widget : widgets) {
    const bool isButton = qobject_cast<QPushButton*>(widget) != nullptr;
    column->addWidget(widget, 0, isButton ? Qt::AlignLeft : Qt::Alignment());
  }
  column->addStretch();
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(frame);
  return page;
}

}  // namespace

FrmOpt::FrmOpt(SettingsStore& store, FontChooser& fonts, QWidget* parent)
    : ToolDialog(parent, &store), store_(store), fonts_(fonts) {
  setObjectName("FrmOpt");
  setWindowTitle("Options");
  setWindowIcon(ApplicationIcon());
  auto* tabs = new QTabWidget;
  tabs->setObjectName("SSTab1");
  tabs->setAccessibleName("Options");
  tabs->setUsesScrollButtons(false);  // the window is as wide as its tabs
  tabs->addTab(generalPage(), "&General Settings");
  tabs->addTab(menuPage(), "&Menu Settings");
  tabs->addTab(manualEditorPage(), "Manual &Editor Settings");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs);
  layout->addWidget(buttonRow());
  load();
  watchChanges();
  tab_->setFocus();
}

QWidget* FrmOpt::generalPage() {
  auto* label = new QLabel("&Tab to Switch to When Loading Is Complete:");
  label->setObjectName("Label1");
  tab_ = new QComboBox;
  tab_->setObjectName("CboTab");
  label->setBuddy(tab_);
  auto* line = new QFrame;
  line->setObjectName("Line1");
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  exit_ = new QCheckBox("Ask if you want to E&xit");
  exit_->setObjectName("ChkBox1");
  restore_ = new QCheckBox("&Restore the last object");
  restore_->setObjectName("ChkRestoreLast");
  return Page("Frame1", "General Settings", {label, tab_, line, exit_, restore_});
}

QWidget* FrmOpt::menuPage() {
  QList<QWidget*> widgets;
  for (int i = 0; i < kFontLabels; ++i) {
    auto* label = new QLabel;
    label->setObjectName("LblFont" + QString::number(i));
    label->setTextFormat(Qt::PlainText);
    fontLabels_[static_cast<std::size_t>(i)] = label;
    widgets.append(label);
  }
  QPushButton* change = Button("BtnFont", "Change &Font");
  connect(change, &QPushButton::clicked, this, &FrmOpt::chooseFont);
  widgets.append(change);
  return Page("Frame2", "Menu Settings", widgets);
}

QWidget* FrmOpt::manualEditorPage() {
  QPushButton* clear = Button("Command1", "Clear Search &History");
  connect(clear, &QPushButton::clicked, this, &FrmOpt::clearSearchHistory);
  complete_ = new QCheckBox("&Propose words while typing");
  complete_->setObjectName("ChkComplete");
  return Page("Frame3", "Manual Editor Settings", {clear, complete_});
}

QWidget* FrmOpt::buttonRow() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  QPushButton* ok = Button("BtnOK", "&Ok");
  ok->setDefault(true);
  apply_ = Button("BtnApply", "&Apply");
  apply_->setEnabled(false);
  QPushButton* cancel = Button("BtnCancel", "&Cancel");
  layout->addStretch();
  for (QPushButton* button : {ok, apply_, cancel}) layout->addWidget(button);
  connect(ok, &QPushButton::clicked, this, &FrmOpt::applyAndClose);
  connect(apply_, &QPushButton::clicked, this, &FrmOpt::applyAndStay);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
  return row;
}

void FrmOpt::load() {
  for (const char* tab : kTabs) tab_->addItem(tab);
  bool isNumber = false;
  const int tab = store_.GetSet("InfoTab", QString::number(kInformationTab)).trimmed().toInt(&isNumber);
  tab_->setCurrentIndex(isNumber && tab < tab_->count() ? tab : -1);
  loadFont();
  exit_->setChecked(store_.GetSet("Exit", "1").trimmed().toInt() == 1);
  restore_->setChecked(FlagOf(store_.GetSet("RestoreLast", "0")).value_or(false));
  complete_->setChecked(FlagOf(store_.GetSet("CompleteWords", "1")).value_or(true));
}

void FrmOpt::loadFont() {
  font_ = StoredFont(store_, kTreeFont, font_);
  // A name that this machine lacks, or a size that the tree passes over, is stored again as it was.
  font_.setFamily(store_.GetSet(kTreeFont.family));
  const double size = store_.GetSet(kTreeFont.size).toDouble();
  if (size > 0) font_.setPointSizeF(size);
  QStringList stored;
  for (const char* setting : kFontSettings) stored += store_.GetSet(setting);
  showFont(stored);
}

void FrmOpt::watchChanges() {
  const auto enableApply = [this] { apply_->setEnabled(true); };
  connect(tab_, &QComboBox::currentIndexChanged, this, enableApply);
  connect(exit_, &QCheckBox::clicked, this, enableApply);
  connect(restore_, &QCheckBox::clicked, this, enableApply);
  connect(complete_, &QCheckBox::clicked, this, enableApply);
}

void FrmOpt::showFont(const QStringList& values) {
  for (int i = 0; i < kFontLabels; ++i) {
    fontLabels_[static_cast<std::size_t>(i)]->setText(QString(kFontCaptions[i]) + ' ' + values[i]);
  }
}

void FrmOpt::chooseFont() {
  const WindowCalls::Running call(calls_);
  const FontRecord chosen = fonts_.ShowFontDialog();
  if (chosen.cancelled()) return;
  font_ = FontOf(chosen, font_);
  showFont({font_.family(), QString::number(font_.pointSizeF()), TextOfFlag(font_.bold()),
            TextOfFlag(font_.underline()), TextOfFlag(font_.italic()), TextOfFlag(font_.strikeOut())});
  apply_->setEnabled(true);
}

void FrmOpt::ApplySet() {
  {
    const SettingsStore::Batch batch(store_);
    store_.SaveSet("InfoTab", QString::number(tab_->currentIndex()));
    store_.SaveSet("Exit", exit_->isChecked() ? "1" : "0");
    store_.SaveSet("RestoreLast", restore_->isChecked() ? "1" : "0");
    store_.SaveSet("CompleteWords", complete_->isChecked() ? "1" : "0");
    SaveFont(store_, kTreeFont, font_);
  }
  Q_EMIT optionsApplied();
}

void FrmOpt::applyAndStay() {
  ApplySet();
  apply_->setEnabled(false);
}

void FrmOpt::applyAndClose() {
  ApplySet();
  close();
}

void FrmOpt::clearSearchHistory() {
  store_.deleteSection("Search List");
  Q_EMIT searchHistoryCleared();
}

}  // namespace korvane
