// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FrmReplace.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <chrono>

#include "controls/Named.h"
#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

constexpr int kFieldWidth = 260;                              // pixels
constexpr auto kUntilCount = std::chrono::milliseconds(100);  // after the last change of what is sought
constexpr std::size_t kMostCounted = 16'000'000;              // bytes of a text whose hits are counted

}  // namespace

FrmReplace::FrmReplace(IniTextEdit& text, QWidget* owner)
    : QDialog(owner),
      text_(text),
      TxtFind_(Named("TxtFind", new QLineEdit)),
      TxtReplace_(Named("TxtReplace", new QLineEdit)),
      ChkMatchCase_(Named("ChkMatchCase", new QCheckBox("&Match case"))),
      wholeWord_(Named("replaceWholeWord", new QCheckBox("Wh&ole word"))),
      regularExpression_(Named("replaceRegularExpression", new QCheckBox("Regular e&xpression"))),
      LblResult_(Named("LblResult", new QLabel)) {
  setObjectName("FrmReplace");
  setWindowTitle("Replace");
  auto* layout = new QGridLayout(this);
  buildFields(*layout);
  buildButtons(*layout);
  layout->setRowStretch(layout->rowCount(), 1);
  layout->setColumnStretch(1, 1);
  LblResult_->setTextFormat(Qt::PlainText);
  count_.setSingleShot(true);
  count_.setInterval(kUntilCount);
  connect(&count_, &QTimer::timeout, this, &FrmReplace::count);
  connect(&text_, &IniTextEdit::documentShown, this, &FrmReplace::countSoon);
  connect(TxtFind_, &QLineEdit::textChanged, this, &FrmReplace::countSoon);
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
  for (QCheckBox* option : {ChkMatchCase_, wholeWord_, regularExpression_}) {
    connect(option, &QCheckBox::toggled, this, &FrmReplace::countSoon);
    layout.addWidget(option, row++, 1);
  }
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
    auto* button = Named(entry.name, new QPushButton(entry.caption));
    connect(button, &QPushButton::clicked, this, entry.run);
    layout.addWidget(button, row++, 2);
  }
}

void FrmReplace::showWith(const QString& sought) {
  if (!sought.isEmpty()) TxtFind_->setText(sought);
  countSoon();
  show();
  raise();
  activateWindow();
  TxtFind_->setFocus();
  TxtFind_->selectAll();
}

TextSearch FrmReplace::search() const {
  return {TxtFind_->text(),
          {ChkMatchCase_->isChecked(), wholeWord_->isChecked(), regularExpression_->isChecked()}};
}

TextSpan FrmReplace::range() const {
  const TextSpan all{0, static_cast<qsizetype>(text_.utf8().size())};
  return text_.markedSpan(TextMark::scope).value_or(all);
}

void FrmReplace::countSoon() {
  LblResult_->clear();
  count_.start();
}

void FrmReplace::count() {
  const QString fault = search().fault();
  if (TxtFind_->text().isEmpty() || !fault.isEmpty() || text_.utf8().size() > kMostCounted)
    return LblResult_->setText(fault);
  const std::size_t hits = search().hits(text_.utf8(), range()).size();
  LblResult_->setText(hits == 1 ? QStringLiteral("1 to replace.")
                                : QStringLiteral("%1 to replace.").arg(hits));
}

void FrmReplace::findNext() {
  count_.stop();
  const auto hit = search().next(text_.utf8(), range(), text_.selection().to);
  if (hit) text_.select(*hit);
  LblResult_->setText(hit ? QString() : QStringLiteral("Not found from here to the end."));
}

void FrmReplace::replace() {
  const auto replacement = search().replacementOf(text_.utf8(), text_.selection(), TxtReplace_->text());
  if (replacement) text_.replaceSelection(QString::fromUtf8(*replacement));
  findNext();
}

void FrmReplace::replaceAll() {
  count_.stop();
  const auto [replaced, count] = search().replaced(text_.utf8(), range(), TxtReplace_->text());
  if (count > 0) text_.replaceAllText(replaced);
  LblResult_->setText(count == 1 ? QStringLiteral("1 replaced.") : QStringLiteral("%1 replaced.").arg(count));
}

}  // namespace korvane
