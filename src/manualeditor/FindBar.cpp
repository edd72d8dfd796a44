// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FindBar.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

#include <array>

#include "controls/Named.h"
#include "controls/ShownText.h"
#include "manualeditor/IniTextEdit.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

// Removes every item that is equal, letter case included, to one above it. The text in the box stays.
void RemoveDuplicates(QComboBox& list) {
  const QSignalBlocker quiet(list);
  const QString text = list.currentText();
  QSet<QString> seen;
  for (int i = 0; i < list.count();) {
    const QString item = list.itemText(i);
    if (seen.contains(item)) {
      list.removeItem(i);
    } else {
      seen.insert(item);
      ++i;
    }
  }
  list.setEditText(text);
}

const QString kFind = QStringLiteral("Find");
const QString kFindNext = QStringLiteral("Find Next");
const QString kSearchList = QStringLiteral("Search List");
constexpr int kBoxWidth = 220;     // pixels
constexpr int kResultMargin = 6;   // pixels
constexpr int kMostOfSought = 60;  // characters in what is said
constexpr QRgb kNotFoundOnLight = 0xFFFFD9D6;
constexpr QRgb kNotFoundOnDark = 0xFF5C2B2B;
constexpr auto kWithEnter = Qt::ShiftModifier | Qt::KeypadModifier;
const QSet<int> kModifiers{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta};

// Some displays do not mark the repeats of a held key, but send them in pairs of release and press.
constexpr int kLetGo = 30;  // milliseconds without a press after a release

bool IsEnter(const QEvent& event, QEvent::Type type) {
  if (event.type() != type) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

FindBar::FindBar(IniTextEdit& text, QToolBar& bar)
    : QObject(&bar),
      text_(text),
      control_(text.focusProxy()),
      finder_(text),
      CboFind_(Named("CboFind", new QComboBox)),
      BtnFind_(Named("BtnFind", new QPushButton(kFind))),
      optionsButton_(Named("findOptions", new QToolButton)),
      result_(Named("findResult", new QLabel)) {
  addControls(bar);
  addOptions();
  CboFind_->installEventFilter(this);  // its line edit leaves the keyboard to it
  BtnFind_->installEventFilter(this);
  text_.focusProxy()->installEventFilter(this);
  connect(CboFind_, &QComboBox::editTextChanged, this, [this] {
    BtnFind_->setText(kFind);
    if (notFound_) show({}, TextFinder::Outcome::neither);
  });
  released_.setSingleShot(true);
  released_.setInterval(kLetGo);
  connect(&released_, &QTimer::timeout, this, &FindBar::FindText);
  connect(BtnFind_, &QPushButton::clicked, this, &FindBar::FindText);
  connect(&finder_, &TextFinder::told, this, &FindBar::show);
  connect(&text_, &IniTextEdit::documentShown, this, &FindBar::lookAtOther);
}

void FindBar::addControls(QToolBar& bar) {
  CboFind_->setAccessibleName(kFind);
  CboFind_->setAccessibleDescription(kFind);  // a reader's name of a list may be its text
  CboFind_->setEditable(true);
  CboFind_->lineEdit()->setAccessibleName(kFind);
  CboFind_->setInsertPolicy(QComboBox::NoInsert);
  CboFind_->setCompleter(nullptr);  // what is typed is what is sought
  CboFind_->setMinimumWidth(kBoxWidth);
  optionsButton_->setText("Options");
  optionsButton_->setAccessibleName("Find options");
  optionsButton_->setToolTip("What a search minds");
  optionsButton_->setPopupMode(QToolButton::InstantPopup);
  optionsButton_->setFocusPolicy(Qt::TabFocus);
  result_->setTextFormat(Qt::PlainText);
  result_->setAccessibleName("Find result");
  result_->setContentsMargins(kResultMargin, 0, kResultMargin, 0);
  bar.addWidget(CboFind_);
  bar.addWidget(BtnFind_);
  bar.addWidget(optionsButton_);
  bar.addWidget(result_);
}

void FindBar::addOptions() {
  struct Option {
    QAction* FindBar::*action;
    const char* name;
    const char* caption;
  };
  constexpr std::array kOptions = {
      Option{&FindBar::matchCase_, "findMatchCase", "Match &case"},
      Option{&FindBar::wholeWord_, "findWholeWord", "Whole &word"},
      Option{&FindBar::regularExpression_, "findRegularExpression", "Regular e&xpression"},
      Option{&FindBar::inSelection_, "findInSelection", "In the &selection"},
      Option{&FindBar::wrapAround_, "findWrapAround", "Wrap &around"}};
  auto* menu = new QMenu(optionsButton_);
  for (const Option& option : kOptions) {
    QAction* action = Named(option.name, menu->addAction(option.caption));
    action->setCheckable(true);
    // The text sought is another one now.
    connect(action, &QAction::toggled, this, [this] { BtnFind_->setText(kFind); });
    this->*option.action = action;
  }
  connect(inSelection_, &QAction::toggled, this, &FindBar::setConfined);
  optionsButton_->setMenu(menu);
}

void FindBar::setConfined(bool confined) {
  if (!confined) {
    finder_.unconfine();
  } else if (!finder_.confine()) {
    inSelection_->setChecked(false);
    show("Nothing is selected", TextFinder::Outcome::neither);
  }
}

SearchOptions FindBar::options() const {
  return {matchCase_->isChecked(), wholeWord_->isChecked(), regularExpression_->isChecked()};
}

void FindBar::clear() {
  CboFind_->clear();
  forgetHits();
  loaded_ = false;
}

void FindBar::forgetHits() {
  inSelection_->setChecked(false);
  finder_.forget();
  goingOn_ = false;
}

void FindBar::forget() {
  const QSignalBlocker quiet(CboFind_);
  const QString text = CboFind_->currentText();
  CboFind_->clear();
  CboFind_->setEditText(text);
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
  const SettingsStore::Batch batch(settings);
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
    finder_.findFirst(sought, options());
    goToText(true);
  } else if (BtnFind_->text() == kFindNext) {
    goOn(TextFinder::Direction::next, true);
  }
  removeDuplicates();
  BtnFind_->setText(kFindNext);
}

void FindBar::findNext() {
  goOn(TextFinder::Direction::next, goingOn_ || CboFind_->hasFocus());
}

void FindBar::findPrevious() {
  goOn(TextFinder::Direction::previous, goingOn_ || CboFind_->hasFocus());
}

void FindBar::goOn(TextFinder::Direction direction, bool fromBox) {
  finder_.find(soughtText(), options(), direction, wrapAround_->isChecked());
  goToText(fromBox);
}

void FindBar::goToText(bool fromBox) {
  text_.setFocus();
  goingOn_ = fromBox;
  found_ = text_.selection();
}

// What the search is confined to is marked in the text, and so belongs to it.
void FindBar::lookAtOther() {
  goingOn_ = false;
  const QSignalBlocker quiet(inSelection_);
  inSelection_->setChecked(text_.markedSpan(TextMark::scope).has_value());
  finder_.lookAtOther();
}

void FindBar::show(const QString& result, TextFinder::Outcome outcome) {
  notFound_ = outcome == TextFinder::Outcome::notFound;
  result_->setText(result);
  QPalette palette;
  if (notFound_) {
    const bool dark = palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
    palette.setColor(QPalette::Base, QColor(dark ? kNotFoundOnDark : kNotFoundOnLight));
  }
  CboFind_->lineEdit()->setPalette(palette);
  Q_EMIT said(notFound_ ? notFoundSentence() : QString());
}

QString FindBar::notFoundSentence() const {
  const QString where = inSelection_->isChecked() ? "the selection" : "this text";
  return '\'' + ShownText(soughtText().left(kMostOfSought)) + "' is not found in " + where + '.';
}

void FindBar::focus() {
  const QString selected = text_.selectedText();
  const bool oneLine = !selected.contains('\n') && !selected.contains('\r');
  const auto letterCase = matchCase_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
  if (!selected.isEmpty() && oneLine && selected.compare(soughtText(), letterCase) != 0)
    CboFind_->setEditText(selected);
  CboFind_->setFocus(Qt::ShortcutFocusReason);
  CboFind_->lineEdit()->selectAll();
}

QString FindBar::soughtText() const {
  return CboFind_->currentText();
}

// Only when Enter is let go: the find moves the keyboard into the text, and a held key would overwrite the
// hit.
bool FindBar::boxEvent(const QEvent& event) {
  if (IsEnter(event, QEvent::KeyPress)) released_.stop();
  if (!IsEnter(event, QEvent::KeyRelease)) return false;
  if (!static_cast<const QKeyEvent&>(event).isAutoRepeat()) released_.start();
  return true;
}

bool FindBar::textEvent(const QEvent& event) {
  const bool pressed = event.type() == QEvent::MouseButtonPress;
  if (pressed) goingOn_ = false;
  if (pressed && notFound_) Q_EMIT said({});
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.key() == Qt::Key_Escape) finder_.forget();
  if (kModifiers.contains(key.key())) return false;
  if (notFound_) Q_EMIT said({});  // the user goes on
  const bool enter = IsEnter(event, QEvent::KeyPress) && (key.modifiers() & ~kWithEnter) == 0;
  goingOn_ = goingOn_ && enter && text_.selection() == found_;
  if (!goingOn_) return false;
  if ((key.modifiers() & Qt::ShiftModifier) != 0) {
    findPrevious();
  } else {
    findNext();
  }
  return true;
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == CboFind_ && boxEvent(*event)) return true;
  if (watched == control_ && textEvent(*event)) return true;
  const bool released = event->type() == QEvent::KeyRelease || event->type() == QEvent::MouseButtonRelease;
  if (watched == BtnFind_ && released) removeDuplicates();
  return QObject::eventFilter(watched, event);
}

}  // namespace korvane
