// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/NewNameDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

#include "controls/Named.h"

namespace korvane {

namespace {

constexpr int kWidth = 420;      // pixels
constexpr int kReasonLines = 3;  // that the longest reasons take

}  // namespace

NewNameDialog::NewNameDialog(const QString& caption, const QString& first, WhyNot whyNot, QWidget* parent)
    : QDialog(parent),
      whyNot_(std::move(whyNot)),
      name_(Named("newName", new QLineEdit(first))),
      reason_(Named("reason", new QLabel)) {
  setObjectName("NewNameDialog");
  setWindowTitle("Duplicate Block");
  auto* label = new QLabel(caption);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(name_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  reason_->setTextFormat(Qt::PlainText);
  reason_->setWordWrap(true);
  reason_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  reason_->setMinimumHeight(kReasonLines * reason_->fontMetrics().lineSpacing());
  auto* column = new QVBoxLayout(this);
  column->addWidget(label);
  column->addWidget(name_);
  column->addWidget(reason_, 1);
  column->addWidget(buttons);
  setMinimumWidth(kWidth);
  name_->selectAll();
  connect(name_, &QLineEdit::textChanged, this, &NewNameDialog::look);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  look();
}

QString NewNameDialog::name() const {
  return name_->text().trimmed();
}

void NewNameDialog::look() {
  const QString reason = whyNot_(name());
  reason_->setText(reason);
  name_->setAccessibleDescription(reason);
  ok_->setEnabled(reason.isEmpty());
}

}  // namespace korvane
