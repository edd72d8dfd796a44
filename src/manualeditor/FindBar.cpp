// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FindBar.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>

#include "manualeditor/FindList.h"
#include "manualeditor/IniTextEdit.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kFind = QStringLiteral("Find");
const QString kFindNext = QStringLiteral("Find Next");
const QString kSearchList = QStringLiteral("Search List");
constexpr int kBoxWidth = 220;  // pixels

// Really let go: the find moves the keyboard into the text, and a held key would go on to overwrite the hit.
bool IsEnterReleased(const QEvent& event) {
  if (event.type() != QEvent::KeyRelease) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return !key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

}  // namespace

FindBar::FindBar(IniTextEdit& text, QToolBar& bar)
    : QObject(&bar), text_(text), CboFind_(new QComboBox), BtnFind_(new QPushButton(kFind)) {
  CboFind_->setObjectName("CboFind");
  CboFind_->setAccessibleName(kFind);
  CboFind_->setEditable(true);
  CboFind_->setInsertPolicy(QComboBox::NoInsert);
  CboFind_->setCompleter(nullptr);  // what is typed is what is sought
  CboFind_->setMinimumWidth(kBoxWidth);
  BtnFind_->setObjectName("BtnFind");
  bar.addWidget(CboFind_);
  bar.addWidget(BtnFind_);
  CboFind_->installEventFilter(this);  // its line edit leaves the keyboard to it
  BtnFind_->installEventFilter(this);
  connect(CboFind_, &QComboBox::editTextChanged, this, [this] { BtnFind_->setText(kFind); });
  connect(BtnFind_, &QPushButton::clicked, this, &FindBar::FindText);
}

void FindBar::clear() {
  CboFind_->clear();
  loaded_ = false;
}

void FindBar::load(const SettingsStore& settings) {
  CboFind_->clear();
  CboFind_->addItems(settings.LoadList(kSearchList));
  CboFind_->setCurrentIndex(-1);
  loaded_ = true;
}

void FindBar::save(SettingsStore& settings) const {
  if (!loaded_) return;
  QStringList items;
  for (int i = 0; i < CboFind_->count(); ++i) items += CboFind_->itemText(i);
  settings.deleteSection(kSearchList);
  settings.SaveList(kSearchList, items);
}

void FindBar::removeDuplicates() {
  RemoveDuplicates(*CboFind_);
}

void FindBar::FindText() {
  const QString sought = soughtText();
  if (BtnFind_->text() == kFind) {
    CboFind_->addItem(sought);
    text_.moveToStart();
    text_.find(sought, IniTextEdit::From::start);
    text_.setFocus();
  } else if (BtnFind_->text() == kFindNext) {
    findNext();
  }
  removeDuplicates();
  BtnFind_->setText(kFindNext);
}

void FindBar::findNext() {
  text_.find(soughtText(), IniTextEdit::From::selectionEnd);
  text_.setFocus();
}

void FindBar::focus() {
  CboFind_->setFocus(Qt::ShortcutFocusReason);
  CboFind_->lineEdit()->selectAll();
}

QString FindBar::soughtText() const {
  return CboFind_->currentText();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == CboFind_ && IsEnterReleased(*event)) {
    FindText();
    return true;
  }
  const bool released = event->type() == QEvent::KeyRelease || event->type() == QEvent::MouseButtonRelease;
  if (watched == BtnFind_ && released) removeDuplicates();
  return QObject::eventFilter(watched, event);
}

}  // namespace korvane
