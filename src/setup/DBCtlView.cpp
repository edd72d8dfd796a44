// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/DBCtlView.h"

#include "platform/FileWriter.h"
#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

constexpr QSize kSize(32, 32);

ReplaceFile ReplaceWith(const FileWriter& writer) {
  return [&writer](std::string_view path, std::string_view bytes) {
    return writer.replace(QString::fromUtf8(path), bytes).toStdString();
  };
}

}  // namespace

DBCtlView::DBCtlView(MessageBoxes& messages, const FileWriter& writer, QWidget* parent)
    : QWidget(parent), messages_(messages), database_(ReplaceWith(writer)) {
  setFixedSize(kSize);
}

void DBCtlView::mouseReleaseEvent(QMouseEvent*) {
  messages_.show({.text = QString::number(database_.RecordPosition())}, this);
}

}  // namespace korvane
