// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/KeptFields.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

#include "mainwindow/BusyWindow.h"
#include "mainwindow/UnitFields.h"

namespace korvane {

namespace {

QLineEdit* FieldWithKeyboard(const QWidget& around) {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || !around.isAncestorOf(focus)) return nullptr;
  const auto* list = qobject_cast<QComboBox*>(focus);
  return list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(focus);
}

}  // namespace

// The whole window is not painted: a hole would be seen where the fields are when notices go meanwhile.
KeptFields::KeptFields(UnitFields& fields)
    : fields_(fields), list_(*fields.LstInfo), field_(FieldWithKeyboard(*fields.F_Tab)) {
  fields_.F_Tab->window()->setUpdatesEnabled(false);
  if (!field_) return;
  text_ = field_->displayText();
  cursor_ = field_->cursorPosition();
  selected_ = field_->selectionStart();
  length_ = field_->selectionLength();
}

KeptFields::~KeptFields() {
  PaintSoon(*fields_.F_Tab->window());
  if (!field_ || field_->displayText() != text_) return;
  field_->setCursorPosition(cursor_);
  if (selected_ < 0) return;
  // The cursor stands at the selection's end, or at its start when it was made backwards.
  const bool backwards = cursor_ == selected_;
  field_->setSelection(backwards ? selected_ + length_ : selected_, backwards ? -length_ : length_);
}

}  // namespace korvane
