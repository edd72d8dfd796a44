// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/DBCtlView.h"

#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

constexpr QSize kSize(32, 32);

}  // namespace

DBCtlView::DBCtlView(MessageBoxes& messages, QWidget* parent) : QWidget(parent), messages_(messages) {
  setFixedSize(kSize);
}

void DBCtlView::mouseReleaseEvent(QMouseEvent*) {
  messages_.show({.text = QString::number(database_.RecordPosition())}, this);
}

}  // namespace korvane
