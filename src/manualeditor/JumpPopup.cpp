// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/JumpPopup.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "controls/Named.h"

namespace korvane {

namespace {

constexpr int kMostRows = 200;
constexpr int kShownRows = 14;
constexpr int kWidth = 420;  // pixels
constexpr int kMargin = 6;

bool HasAllWords(const QString& text, const QStringList& words) {
  return std::all_of(words.begin(), words.end(),
                     [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace

JumpPopup::JumpPopup(QWidget* owner)
    : QFrame(owner, Qt::Popup),
      field_(Named("jumpField", new QLineEdit)),
      list_(Named("jumpList", new QListWidget)) {
  setObjectName("JumpPopup");
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(field_);
  layout->addWidget(list_);
  setFocusProxy(field_);
  list_->setAccessibleName("Places");
  list_->setUniformItemSizes(true);
  list_->setFocusPolicy(Qt::NoFocus);
  field_->installEventFilter(this);
  connect(field_, &QLineEdit::textChanged, this, &JumpPopup::narrow);
  connect(field_, &QLineEdit::returnPressed, this, &JumpPopup::take);
  connect(list_, &QListWidget::itemClicked, this, &JumpPopup::take);
}

void JumpPopup::ask(const QString& what, std::vector<Item> items, int current) {
  items_ = std::move(items);
  field_->setPlaceholderText(what);
  for (QWidget* read : {static_cast<QWidget*>(this), static_cast<QWidget*>(field_)})
    read->setAccessibleName(what);
  field_->clear();
  narrow();
  list_->setVisible(!items_.empty());
  if (current >= 0) list_->setCurrentRow(std::min(current, list_->count() - 1));
  place();
  show();
  field_->setFocus();
}

void JumpPopup::place() {
  const int width = std::min(kWidth, parentWidget()->width());
  const int rows = items_.empty() ? 0 : kShownRows * list_->sizeHintForRow(0) + 2 * list_->frameWidth();
  list_->setFixedHeight(rows);
  resize(width, sizeHint().height());
  move(parentWidget()->mapToGlobal(QPoint((parentWidget()->width() - width) / 2, 0)));
}

void JumpPopup::narrow() {
  const QStringList words = field_->text().split(' ', Qt::SkipEmptyParts);
  list_->clear();
  for (const Item& item : items_) {
    if (list_->count() == kMostRows) break;
    if (!HasAllWords(item.text, words)) continue;
    auto* row = new QListWidgetItem(item.text, list_);
    row->setData(Qt::UserRole, item.line);
  }
  list_->setCurrentRow(0);
}

void JumpPopup::take() {
  bool isNumber = false;
  int line = field_->text().trimmed().toInt(&isNumber);
  if (!isNumber && list_->currentItem() != nullptr) line = list_->currentItem()->data(Qt::UserRole).toInt();
  hide();
  if (line > 0) Q_EMIT chosen(line);
}

bool JumpPopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool moves =
        key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (moves) return QCoreApplication::sendEvent(list_, event);
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace korvane
