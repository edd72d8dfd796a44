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

// Some displays do not mark the repeats of a held key, but send them in pairs of release and press.
constexpr int kLetGo = 30;  // milliseconds without a press after a release

bool IsEnter(const QEvent& event, QEvent::Type type) {
  if (event.type() != type) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

FindBar::FindBar(IniTextEdit& text, QToolBar& bar)
    : QObject(&bar), text_(text), CboFind_(new QComboBox), BtnFind_(new QPushButton(kFind)) {
  CboFind_->setObjectName("CboFind");
  CboFind_->setAccessibleName(kFind);
  CboFind_->setEditable(true);
  CboFind_->lineEdit()->setAccessibleName(kFind);
  CboFind_->setInsertPolicy(QComboBox::NoInsert);
  CboFind_->setCompleter(nullptr);  // what is typed is what is sought
  CboFind_->setMinimumWidth(kBoxWidth);
  BtnFind_->setObjectName("BtnFind");
  bar.addWidget(CboFind_);
  bar.addWidget(BtnFind_);
  CboFind_->installEventFilter(this);  // its line edit leaves the keyboard to it
  BtnFind_->installEventFilter(this);
  connect(CboFind_, &QComboBox::editTextChanged, this, [this] { BtnFind_->setText(kFind); });
  released_.setSingleShot(true);
  released_.setInterval(kLetGo);
  connect(&released_, &QTimer::timeout, this, &FindBar::FindText);
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
  // Only when it is let go: the find moves the keyboard into the text, and a held key would overwrite the
  // hit.
  if (watched == CboFind_ && IsEnter(*event, QEvent::KeyPress)) released_.stop();
  if (watched == CboFind_ && IsEnter(*event, QEvent::KeyRelease)) {
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) released_.start();
    return true;
  }
  const bool released = event->type() == QEvent::KeyRelease || event->type() == QEvent::MouseButtonRelease;
  if (watched == BtnFind_ && released) removeDuplicates();
  return QObject::eventFilter(watched, event);
}

}  // namespace korvane
