// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ForgetDialog.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include "controls/Named.h"
#include "history/FileVersions.h"

namespace korvane {

namespace {

constexpr int kUsualDays = 30;

}  // namespace

ForgetDialog::ForgetDialog(const KeptVersions& versions, QWidget* parent)
    : QDialog(parent),
      versions_(versions),
      date_(Named("date", new QDateEdit(QDate::currentDate().addDays(-kUsualDays)))),
      unsaved_(Named("unsaved", new QCheckBox("Also texts that were &not saved"))),
      counted_(Named("counted", new QLabel)) {
  setObjectName("ForgetDialog");
  setWindowTitle("Forget Versions");
  date_->setCalendarPopup(true);
  date_->setDisplayFormat("d MMM yyyy");
  date_->setLocale(QLocale(QLocale::English));
  auto* layout = new QFormLayout(this);
  layout->addRow("Forget versions &older than", date_);
  layout->addRow(unsaved_);
  layout->addRow(counted_);
  layout->addRow(
      new QLabel("Of each file the newest version stays. What is forgotten cannot be brought back."));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  forget_ = Named("forget", buttons->addButton("&Forget", QDialogButtonBox::AcceptRole));
  forget_->setAutoDefault(false);
  buttons->button(QDialogButtonBox::Cancel)->setDefault(true);
  layout->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(date_, &QDateEdit::dateChanged, this, &ForgetDialog::count);
  connect(unsaved_, &QCheckBox::toggled, this, &ForgetDialog::count);
  count();
}

void ForgetDialog::count() {
  chosen_ = versions_.olderThan(date_->date().startOfDay(), unsaved_->isChecked());
  qint64 bytes = 0;
  for (const KeptVersion& version : chosen_) bytes += QFileInfo(version.file).size();
  counted_->setText(chosen_.empty() ? QStringLiteral("There are none.")
                                    : QStringLiteral("%1 version%2, %3, will be forgotten.")
                                          .arg(chosen_.size())
                                          .arg(chosen_.size() == 1 ? "" : "s", SizeText(bytes)));
  forget_->setEnabled(!chosen_.empty());
}

}  // namespace korvane
