// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FrmReplace.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

constexpr int kFieldWidth = 260;  // pixels

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(name);
  return control;
}

}  // namespace

FrmReplace::FrmReplace(IniTextEdit& text, QWidget* owner)
    : QDialog(owner),
      text_(text),
      TxtFind_(Named(new QLineEdit, "TxtFind")),
      TxtReplace_(Named(new QLineEdit, "TxtReplace")),
      ChkMatchCase_(Named(new QCheckBox("&Match case"), "ChkMatchCase")),
      LblResult_(Named(new QLabel, "LblResult")) {
  setObjectName("FrmReplace");
  setWindowTitle("Replace");
  auto* layout = new QGridLayout(this);
  buildFields(*layout);
  buildButtons(*layout);
  layout->setRowStretch(4, 1);
  layout->setColumnStretch(1, 1);
}

void FrmReplace::buildFields(QGridLayout& layout) {
  const std::array<std::pair<const char*, QLineEdit*>, 2> fields = {
      {{"Fi&nd what:", TxtFind_}, {"Replace &with:", TxtReplace_}}};
  int row = 0;
  for (const auto& [caption, field] : fields) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    field->setMinimumWidth(kFieldWidth);
    layout.addWidget(label, row, 0);
    layout.addWidget(field, row++, 1);
  }
  layout.addWidget(ChkMatchCase_, row++, 1);
  layout.addWidget(LblResult_, row, 1);
}

void FrmReplace::buildButtons(QGridLayout& layout) {
  struct Button {
    const char* name;
    const char* caption;
    void (FrmReplace::*run)();
  };
  constexpr std::array kButtons = {Button{"BtnFindNext", "&Find Next", &FrmReplace::findNext},
                                   Button{"BtnReplace", "&Replace", &FrmReplace::replace},
                                   Button{"BtnReplaceAll", "Replace &All", &FrmReplace::replaceAll},
                                   Button{"BtnClose", "Close", &FrmReplace::hide}};
  int row = 0;
  for (const Button& entry : kButtons) {
    auto* button = Named(new QPushButton(entry.caption), entry.name);
    connect(button, &QPushButton::clicked, this, entry.run);
    layout.addWidget(button, row++, 2);
  }
}

void FrmReplace::showWith(const QString& sought) {
  if (!sought.isEmpty()) TxtFind_->setText(sought);
  LblResult_->clear();
  show();
  raise();
  activateWindow();
  TxtFind_->setFocus();
  TxtFind_->selectAll();
}

TextSearch FrmReplace::search() const {
  return {TxtFind_->text(), {.matchCase = ChkMatchCase_->isChecked()}};
}

void FrmReplace::findNext() {
  const auto size = static_cast<qsizetype>(text_.utf8().size());
  const auto hit = search().next(text_.utf8(), {0, size}, text_.selection().to);
  if (hit) text_.select(*hit);
  LblResult_->setText(hit ? QString() : QStringLiteral("Not found from here to the end."));
}

void FrmReplace::replace() {
  const auto replacement = search().replacementOf(text_.utf8(), text_.selection(), TxtReplace_->text());
  if (replacement) text_.replaceSelection(TxtReplace_->text());
  findNext();
}

void FrmReplace::replaceAll() {
  const TextSpan all{0, static_cast<qsizetype>(text_.utf8().size())};
  const auto [replaced, count] = search().replaced(text_.utf8(), all, TxtReplace_->text());
  if (count > 0) text_.replaceAllText(replaced);
  LblResult_->setText(count == 1 ? QStringLiteral("1 replaced.") : QStringLiteral("%1 replaced.").arg(count));
}

}  // namespace korvane
