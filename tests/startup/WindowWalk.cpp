// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/WindowWalk.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <map>

namespace korvane {

namespace {

constexpr int kMostSteps = 200;
constexpr int kMostParts = 300;  // of a control that Tab stops at
constexpr int kRing = 4;         // pixels around a control in which it may show that it has the keyboard

QString NameOf(const QWidget& control) {
  return control.window()->objectName() + '/' + control.objectName() + " (" +
         control.metaObject()->className() + ')';
}

// Of a group of radio buttons the keyboard gets to the chosen one, and with the arrow keys to the others.
bool IsOtherOfGroup(const QWidget& control) {
  const auto* choice = qobject_cast<const QRadioButton*>(&control);
  return choice != nullptr && !choice->isChecked();
}

// The keyboard gets to it; not to a row of tabs without any.
bool IsReached(const QWidget& control) {
  const auto* tabs = qobject_cast<const QTabBar*>(&control);
  return (control.focusPolicy() & Qt::TabFocus) != 0 && control.focusProxy() == nullptr &&
         !control.isWindow() && (tabs == nullptr || tabs->count() > 0);
}

QList<QWidget*> ControlsOf(QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    if (control->window() == window.window() && IsReached(*control)) controls += control;
  }
  return controls;
}

// Tab belongs to the text there.
bool TypesTab(const QWidget& control) {
  const auto* text = qobject_cast<const QsciScintilla*>(&control);
  return text != nullptr && !text->isReadOnly();
}

QImage LookOf(QWidget& control) {
  QWidget& window = *control.window();
  const QRect place(control.mapTo(&window, QPoint(0, 0)), control.size());
  return window.grab(place.adjusted(-kRing, -kRing, kRing, kRing)).toImage();
}

class Walk {
 public:
  explicit Walk(QWidget& window) : window_(window) {}

  // Until it comes back to the start.
  void go(QWidget& start, Qt::Key key) {
    start.clearFocus();
    window_.window()->setAttribute(Qt::WA_KeyboardFocusChange);  // as behind an earlier Tab
    start.setFocus(Qt::TabFocusReason);
    QWidget* at = window_.window()->focusWidget();
    for (int step = 0; step < kMostSteps && at != nullptr; ++step) {
      if (!seen_.contains(at)) seen_ += at;
      if (TypesTab(*at)) return;
      at = goOn(*at, key);
      if (at == &start) return;
    }
    if (at == nullptr) faults_ += "the keyboard is nowhere";
  }

  QStringList faults() {
    for (QWidget* control : ControlsOf(window_)) {
      if (control->isVisible() && control->isEnabled() && !IsOtherOfGroup(*control) &&
          !seen_.contains(control))
        faults_ += "not reached: " + NameOf(*control);
    }
    faults_.removeDuplicates();
    return faults_;
  }

 private:
  // Links and the parts of a date are stops inside of their control.
  QWidget* goOn(QWidget& from, Qt::Key key) {
    const QImage with = LookOf(from);
    QWidget* next = &from;
    for (int part = 0; part < kMostParts && next == &from; ++part) {
      QTest::keyClick(&from, key);
      next = window_.window()->focusWidget();
    }
    if (next == &from) {
      if (ControlsOf(window_).size() > 1) faults_ += "holds the keyboard: " + NameOf(from);
    } else if (LookOf(from) == with) {
      faults_ += "does not show the keyboard: " + NameOf(from);
    }
    return next;
  }

  QWidget& window_;
  QList<QWidget*> seen_;
  QStringList faults_;
};

using Letters = std::map<QString, QStringList>;

void Add(Letters& letters, const QString& caption) {
  const QKeySequence mnemonic = QKeySequence::mnemonic(caption);
  if (!mnemonic.isEmpty()) letters[mnemonic.toString()] += caption;
}

QStringList ClashesOf(const Letters& letters, const QString& where) {
  QStringList clashes;
  for (const auto& [letter, captions] : letters) {
    if (captions.size() > 1) clashes += where + ": " + letter + " of " + captions.join(" and ");
  }
  return clashes;
}

void AddCaptions(Letters& letters, const QWidget& control) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) Add(letters, button->text());
  if (const auto* group = qobject_cast<const QGroupBox*>(&control)) Add(letters, group->title());
  const auto* label = qobject_cast<const QLabel*>(&control);
  if (label != nullptr && label->buddy() != nullptr) Add(letters, label->text());
  if (const auto* tabs = qobject_cast<const QTabBar*>(&control)) {
    for (int tab = 0; tab < tabs->count(); ++tab) Add(letters, tabs->tabText(tab));
  }
  if (const auto* bar = qobject_cast<const QMenuBar*>(&control)) {
    for (const QAction* action : bar->actions()) Add(letters, action->text());
  }
}

QStringList TakeEntriesOfPopup() {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) return {};
  QStringList entries;
  for (const QAction* action : menu->actions()) entries += action->text();
  menu->close();
  return entries;
}

// What the menu that comes up offers; some wait for an answer at once.
QStringList EntriesBy(QContextMenuEvent::Reason reason, QWidget& control) {
  QWidget* target = &control;
  QPoint at = control.rect().center();
  if (auto* view = qobject_cast<QAbstractScrollArea*>(&control)) target = view->viewport();
  if (const auto* rows = qobject_cast<QAbstractItemView*>(&control); rows != nullptr)
    at = rows->visualRect(rows->currentIndex()).center();
  QContextMenuEvent event(reason, at, target->mapToGlobal(at));
  QStringList entries;
  QTimer whileItWaits;
  QObject::connect(&whileItWaits, &QTimer::timeout, [&entries] { entries += TakeEntriesOfPopup(); });
  whileItWaits.start(0);
  QCoreApplication::sendEvent(reason == QContextMenuEvent::Keyboard ? &control : target, &event);
  return entries + TakeEntriesOfPopup();
}

}  // namespace

QStringList Nameless(QWidget& window) {
  QStringList found;
  QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(window.window());
  if (whole->role() == QAccessible::Client || whole->text(QAccessible::Name).isEmpty())
    found += "not read as a window: " + NameOf(window);
  for (QWidget* control : ControlsOf(window)) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
    if (reader->text(QAccessible::Name).isEmpty()) found += "without a name: " + NameOf(*control);
    if (qobject_cast<QComboBox*>(control) != nullptr && reader->text(QAccessible::Description).isEmpty() &&
        reader->relations(QAccessible::Label).isEmpty())
      found += "a list without a name: " + NameOf(*control);
    if (reader->role() == QAccessible::NoRole || reader->role() == QAccessible::Client)
      found += "without a role: " + NameOf(*control);
  }
  return found;
}

QStringList FaultsByTab(QWidget& window) {
  if (ControlsOf(window).empty()) return {};
  QWidget* start = window.window()->focusWidget();
  if (start == nullptr) return {"nothing has the keyboard"};
  Walk walk(window);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) walk.go(*start, key);
  return walk.faults();
}

QStringList ClashingMnemonics(QWidget& window) {
  Letters letters;
  QStringList clashes;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    if (auto* menu = qobject_cast<QMenu*>(control)) {
      Letters ofMenu;
      for (const QAction* action : menu->actions()) {
        if (action->isVisible()) Add(ofMenu, action->text());
      }
      clashes += ClashesOf(ofMenu, "menu " + menu->objectName() + menu->title());
    } else if (control->window() == window.window() && control->isVisible()) {
      AddCaptions(letters, *control);
    }
  }
  return clashes + ClashesOf(letters, window.objectName());
}

QStringList MenusOfTheMouseOnly(QWidget& window) {
  QStringList found;
  for (QWidget* control : ControlsOf(window)) {
    if (!control->isVisible() || !control->isEnabled()) continue;
    control->setFocus();
    const QStringList byKey = EntriesBy(QContextMenuEvent::Keyboard, *control);
    for (const QString& entry : EntriesBy(QContextMenuEvent::Mouse, *control)) {
      if (!byKey.contains(entry)) found += NameOf(*control) + ": " + entry;
    }
  }
  return found;
}

}  // namespace korvane
