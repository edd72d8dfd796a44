// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/Completion.h"

#include <QKeyEvent>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "app/CatalogueService.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/IniTextEdit.h"
#include "manualeditor/ProposalList.h"
#include "platform/TextEncoding.h"
#include "writing/WritingPlace.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr qsizetype kFewestLetters = 3;     // that a list comes by itself for
constexpr qsizetype kLookBack = 256 << 10;  // bytes in which the header of the block is looked for
constexpr std::string_view kBehindWords = " \t\r\n=;";

constexpr std::array kTakingKeys = {Qt::Key_Tab, Qt::Key_Escape};
constexpr std::array kChoosingKeys = {Qt::Key_Up,       Qt::Key_Down,   Qt::Key_PageUp,
                                      Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter};
// Others may be typed on, or change the word.
constexpr std::array kLeavingKeys = {Qt::Key_Left,   Qt::Key_Right, Qt::Key_Home,   Qt::Key_End,
                                     Qt::Key_Up,     Qt::Key_Down,  Qt::Key_PageUp, Qt::Key_PageDown,
                                     Qt::Key_Return, Qt::Key_Enter};

template <std::size_t Size>
bool IsOneOf(const std::array<Qt::Key, Size>& keys, const QKeyEvent& key) {
  return std::ranges::find(keys, key.key()) != keys.end();
}

bool IsPlain(const QKeyEvent& key) {
  return (key.modifiers() & ~Qt::KeypadModifier) == 0;
}

std::vector<ItemName> NamesOf(const BlockOutline& outline) {
  const GameStructure& structure = GameStructure::get();
  std::vector<ItemName> names;
  for (const TextBlock& block : outline.blocks()) {
    const KindId kind = structure.type(block.type).kind;
    if (kind == kNoKind || structure.kinds()[kind].space == kNoSpace) continue;
    const std::size_t end = std::min(block.words.find_first_of(" \t="), block.words.size());
    names.push_back({kind, LegibleBytesOfUtf8(std::string_view(block.words).substr(0, end))});
  }
  return names;
}

}  // namespace

Completion::Completion(IniTextEdit& text, BlockOutline& outline, CatalogueService& names)
    : QObject(&text), text_(text), outline_(outline), names_(names), list_(new ProposalList(text)) {
  QsciScintilla& control = text_.view().control();
  control.installEventFilter(this);
  control.viewport()->installEventFilter(this);
  text_.window()->installEventFilter(this);
  soon_.setSingleShot(true);
  connect(&soon_, &QTimer::timeout, this, &Completion::update);
  connect(&control, &Sci::SCN_CHARADDED, this, &Completion::typed);
  connect(&text_, &IniTextEdit::edited, this, &Completion::updateSoon);
  connect(&text_, &IniTextEdit::cursorMayHaveMoved, this, &Completion::updateSoon);
  connect(&outline_, &BlockOutline::changed, this, [this] { ownKnown_ = false; });
  connect(&names_, &CatalogueService::changed, this, [this] {
    cursor_ = -1;
    updateSoon();
  });
  connect(list_, &ProposalList::taken, this, &Completion::take);
}

void Completion::setFile(const QString& path) {
  close();
  path_ = path;
}

void Completion::ask() {
  if (!mayType()) return;
  names_.ensure();
  asked_ = true;
  dismissed_ = -1;
  const Proposals found = proposals();
  if (!found.list.empty()) return show(found);
  close();
  QToolTip::showText(text_.placeOnScreen(text_.cursor()).bottomLeft(), "Nothing to propose here.", &text_);
}

void Completion::close() {
  soon_.stop();
  asked_ = false;
  list_->hide();
}

bool Completion::mayType() const {
  return text_.view().send(Sci::SCI_GETREADONLY) == 0 && text_.view().send(Sci::SCI_GETSELECTIONS) == 1 &&
         text_.view().send(Sci::SCI_GETSELECTIONEMPTY) != 0;
}

// The text before the cursor is copied: the control would move all of it to hand out a view.
std::string Completion::textBefore(qsizetype position) const {
  return text_.utf8({std::max<qsizetype>(position - kLookBack, 0), position});
}

Proposals Completion::proposals() {
  if (!ownKnown_) own_ = NamesOf(outline_);
  ownKnown_ = true;
  const std::string before = textBefore(text_.cursor());
  const CataloguePtr names = names_.withUnsaved(path_);
  const std::string path = path_.toStdString();
  return Propose(LegibleBytesOfUtf8(FromLastHeader(before)), {names.get(), path, own_});
}

void Completion::typed(int /*character*/) {
  if (list_->isVisible()) return update();
  if (!automatic_ || !mayType()) return;
  const qsizetype cursor = text_.cursor();
  const qsizetype line = text_.view().send(Sci::SCI_POSITIONFROMLINE, text_.cursorLine());
  const std::string before = text_.utf8({line, cursor});
  const qsizetype start = line + static_cast<qsizetype>(before.find_last_of(kBehindWords) + 1);
  const auto next = static_cast<char>(text_.view().send(Sci::SCI_GETCHARAT, cursor));
  const bool atEnd = next == '\0' || kBehindWords.find(next) != std::string_view::npos;
  if (cursor - start < kFewestLetters || !atEnd || start == dismissed_) return;
  names_.ensure();
  const Proposals found = proposals();
  asked_ = false;
  if (static_cast<qsizetype>(found.typed) >= kFewestLetters) show(found);
}

void Completion::updateSoon() {
  if (list_->isVisible()) soon_.start();
}

void Completion::update() {
  soon_.stop();
  if (!list_->isVisible() || cursor_ == text_.cursor()) return;
  if (!mayType()) return close();
  const Proposals found = proposals();
  const auto letters = static_cast<qsizetype>(found.typed);
  const bool sameWord = text_.view().send(Sci::SCI_POSITIONRELATIVE, text_.cursor(), -letters) == start_;
  if (!sameWord || (!asked_ && letters < kFewestLetters)) return close();
  show(found);
}

// A word that is complete needs no list.
void Completion::show(const Proposals& proposals) {
  cursor_ = text_.cursor();
  start_ = text_.view().send(Sci::SCI_POSITIONRELATIVE, cursor_, -static_cast<qsizetype>(proposals.typed));
  const bool complete = proposals.list.size() == 1 &&
                        Utf8OfFile(proposals.list.front().text) == text_.utf8({start_, cursor_}).c_str();
  if (proposals.list.empty() || (complete && !asked_)) return close();
  list_->show(proposals.list, text_.placeOnScreen(start_));
}

// The rest of the word behind the cursor goes too.
void Completion::take() {
  if (soon_.isActive()) update();
  if (!list_->isVisible()) return;
  const std::string line = text_.utf8({text_.cursor(), text_.selectedLines().to});
  const auto rest = static_cast<qsizetype>(std::min(line.find_first_of(kBehindWords), line.size()));
  const QByteArray word = list_->chosen().toUtf8();
  const TextSpan span{start_, text_.cursor() + rest};
  close();
  text_.replaceSpan(span, std::string_view(word.constData(), static_cast<std::size_t>(word.size())));
  const qsizetype behind = span.from + word.size();
  text_.select({behind, behind});
}

bool Completion::eventFilter(QObject* watched, QEvent* event) {
  if (!list_->isVisible()) return QObject::eventFilter(watched, event);
  if (watched == text_.window()) {
    if (event->type() == QEvent::Move) close();
    return QObject::eventFilter(watched, event);
  }
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (takesKey(*static_cast<const QKeyEvent*>(event))) event->accept();
      return event->isAccepted();
    case QEvent::KeyPress:
      return useKey(*static_cast<const QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::FocusOut:
    case QEvent::Resize:
    case QEvent::Hide:
      close();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool Completion::takesKey(const QKeyEvent& key) const {
  return IsPlain(key) && (IsOneOf(kTakingKeys, key) || (asked_ && IsOneOf(kChoosingKeys, key)));
}

bool Completion::useKey(const QKeyEvent& key) {
  if (!takesKey(key)) {
    if (IsOneOf(kLeavingKeys, key)) close();
    return false;
  }
  switch (key.key()) {
    case Qt::Key_Escape:
      dismissed_ = start_;
      close();
      break;
    case Qt::Key_Up:
      list_->move(-1);
      break;
    case Qt::Key_Down:
      list_->move(1);
      break;
    case Qt::Key_PageUp:
      list_->movePage(-1);
      break;
    case Qt::Key_PageDown:
      list_->movePage(1);
      break;
    default:
      take();
  }
  return true;
}

}  // namespace korvane
