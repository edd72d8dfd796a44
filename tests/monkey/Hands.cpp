// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/Hands.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTreeView>
#include <QUrl>
#include <QWheelEvent>

#include <array>

namespace korvane {

namespace {

constexpr std::array kTexts = {"a",      "Tank",   "Gun1",   "90.5", "0",          " ; x",
                               "\u00e9", "\u20ac", "\u4e2d", "\t",   "Weapon Gun9"};
constexpr std::array kKeys = {
    Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Down,  Qt::Key_Left,     Qt::Key_Right,     Qt::Key_Tab,
    Qt::Key_Backtab, Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageDown, Qt::Key_PageUp,    Qt::Key_Return,
    Qt::Key_Enter,   Qt::Key_Escape, Qt::Key_Space, Qt::Key_Delete,   Qt::Key_Backspace, Qt::Key_Menu,
    Qt::Key_F3,      Qt::Key_F9,     Qt::Key_F1,    Qt::Key_F8,       Qt::Key_F2,        Qt::Key_Asterisk,
    Qt::Key_Plus,    Qt::Key_Minus,  Qt::Key_F4,    Qt::Key_F5,       Qt::Key_F6,        Qt::Key_F7};
constexpr std::array kLetters = {Qt::Key_S,    Qt::Key_S,   Qt::Key_F,    Qt::Key_H,      Qt::Key_A,
                                 Qt::Key_Z,    Qt::Key_Y,   Qt::Key_X,    Qt::Key_C,      Qt::Key_V,
                                 Qt::Key_Home, Qt::Key_End, Qt::Key_Down, Qt::Key_Period, Qt::Key_I};
// The search commands and those of findings.
constexpr std::array kSearchKeys = {QKeyCombination(Qt::CTRL, Qt::Key_P),
                                    QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_F),
                                    QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_M),
                                    QKeyCombination(Qt::CTRL, Qt::Key_Return),
                                    QKeyCombination(Qt::ALT, Qt::Key_Left),
                                    QKeyCombination(Qt::ALT, Qt::Key_Right),
                                    QKeyCombination(Qt::SHIFT, Qt::Key_F4),
                                    QKeyCombination(Qt::SHIFT, Qt::Key_F8)};
constexpr int kLargest = 1800;  // pixels of a window

// Commands that open a window; chance alone would choose each among a hundred.
struct Opener {
  const char* window;
  const char* command;
};
constexpr std::array kOpeners = {
    Opener{"FrmEdit", "MnuOpt"},           Opener{"FrmEdit", "MnuWe"},
    Opener{"FrmEdit", "MnuArmour"},        Opener{"FrmEdit", "MnuCmdSetEditor"},
    Opener{"FrmEdit", "MnuCmdBtnEditor"},  Opener{"FrmEdit", "findAnything"},
    Opener{"FrmEdit", "findUses"},         Opener{"FrmEdit", "namesUsed"},
    Opener{"FrmEdit", "findInFiles"},      Opener{"FrmEdit", "checkData"},
    Opener{"FrmEdit", "showHistory"},      Opener{"FrmEdit", "compareOriginal"},
    Opener{"FrmEdit", "MnuHelp_HelpCont"}, Opener{"FrmEdit", "MnuHelp_About"},
    Opener{"frmAbout", "MnuFun"},          Opener{"FrmArmour", "Test"},
    Opener{"FrmCmdSet", "MnuCmdFormat"},   Opener{"FrmManEdit", "MnuReplace"},
    Opener{"FrmManEdit", "MnuFont"},       Opener{"FrmManEdit", "goToLine"},
    Opener{"FrmManEdit", "goToBlock"},     Opener{"FrmManEdit", "duplicateBlock"},
    Opener{"FrmManEdit", "extractText"},   Opener{"FrmManEdit", "showHistory"},
    Opener{"FrmManEdit", "findAnything"},  Opener{"FrmManEdit", "findUses"},
};

bool IsBlocked(const QWindow& window) {
  const QWindow* modal = QGuiApplication::modalWindow();
  return modal != nullptr && modal != &window && WidgetOf(window) != QApplication::activePopupWidget();
}

QTreeView* ShownTree(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* tree = window->isVisible() ? window->findChild<QTreeView*>(name) : nullptr;
    if (tree != nullptr && tree->isVisible()) return tree;
  }
  return nullptr;
}

}  // namespace

const Hands::Action Hands::kActions[] = {
    {"click", 30, &Hands::click},
    {"double click", 4, &Hands::doubleClick},
    {"right click", 4, &Hands::rightClick},
    {"drag", 2, &Hands::drag},
    {"wheel", 3, &Hands::turnWheel},
    {"type", 10, &Hands::type},
    {"key", 20, &Hands::pressKey},
    {"shortcut", 6, &Hands::pressShortcut},
    {"command", 10, &Hands::runCommand},
    {"button", 10, &Hands::clickButton},
    {"open file", 3, &Hands::openFile},
    {"save", 3, &Hands::save},
    {"tabs", 5, &Hands::useTabs},
    {"drop", 1, &Hands::dropFiles},
    {"open window", 4, &Hands::openWindow},
    {"command key", 5, &Hands::pressCommandKey},
    {"write", 4, &Hands::write},
    {"next step", 10, &Hands::goOn},
    {"object", 8, &Hands::clickObject},
    {"entry", 8, &Hands::clickEntry},
    {"link", 4, &Hands::followLink},
    {"value", 4, &Hands::typeValue},
    {"close", 3, &Hands::closeWindow},
    {"resize", 3, &Hands::resizeWindow},
    {"move", 1, &Hands::moveWindow},
    {"window state", 1, &Hands::changeState},
    {"palette", 1, &Hands::changePalette},
    {"font", 1, &Hands::changeFont},
    {"clipboard", 1, &Hands::fillClipboard},
};

QList<QWindow*> WindowsShown() {
  QList<QWindow*> shown;
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    const QWidget* widget = window->isVisible() ? WidgetOf(*window) : nullptr;
    if (widget == nullptr) continue;
    const bool isTip = window->type() == Qt::ToolTip && widget->objectName() != "ProposalList";
    if (!isTip) shown += window;
  }
  return shown;
}

QWidget* WidgetOf(const QWindow& window) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->windowHandle() == &window) return widget;
  }
  return nullptr;
}

void Hands::act() {
  leaveSaveDialogs();
  int all = 0;
  for (const Action& action : kActions) all += action.weight;
  int chosen = chance_.below(all);
  for (const Action& action : kActions) {
    chosen -= action.weight;
    if (chosen >= 0) continue;
    doing_ = action.what;
    return (this->*action.act)();
  }
}

// Chance would write files wherever it is.
void Hands::leaveSaveDialogs() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* dialog = qobject_cast<QFileDialog*>(window);
    if (dialog != nullptr && dialog->isVisible() && dialog->acceptMode() == QFileDialog::AcceptSave)
      dialog->reject();
  }
}

QWindow* Hands::someWindow() {
  if (const QWidget* popup = QApplication::activePopupWidget(); popup != nullptr && !chance_.oneIn(5)) {
    return popup->windowHandle();
  }
  QWindow* active = QGuiApplication::focusWindow();
  if (active != nullptr && active->isVisible() && !chance_.oneIn(3)) return active;
  QList<QWindow*> shown = WindowsShown();
  return shown.isEmpty() ? nullptr : chance_.oneOf(shown);
}

// Mostly on some control, so that small ones are met as often as large ones.
QPoint Hands::somePlace(const QWindow& window) {
  const auto inside = [this](QSize size) {
    return QPoint(chance_.below(size.width()), chance_.below(size.height()));
  };
  const QWidget* top = WidgetOf(window);
  if (top == nullptr || chance_.oneIn(5)) return inside(window.size());
  QList<QWidget*> controls;
  for (QWidget* control : top->findChildren<QWidget*>()) {
    if (control->window() == top && control->isVisible()) controls += control;
  }
  if (controls.isEmpty()) return inside(window.size());
  const QWidget* control = chance_.oneOf(controls);
  return control->mapTo(top, inside(control->size()));
}

void Hands::press(Qt::MouseButton button, QWindow& window, QPoint at) {
  const QPointer<QWindow> target(&window);
  if (!QRect({}, window.size()).contains(at)) return;
  event([&] { QTest::mousePress(target, button, {}, at); });
  event([&] {
    if (target) QTest::mouseRelease(target, button, {}, at);
  });
}

void Hands::click() {
  if (QWindow* window = someWindow()) press(Qt::LeftButton, *window, somePlace(*window));
}

void Hands::rightClick() {
  if (QWindow* window = someWindow()) press(Qt::RightButton, *window, somePlace(*window));
}

void Hands::doubleClick() {
  QWindow* window = someWindow();
  if (window == nullptr) return;
  const QPoint at = somePlace(*window);
  if (QRect({}, window->size()).contains(at))
    event([&] { QTest::mouseDClick(window, Qt::LeftButton, {}, at); });
}

void Hands::drag() {
  const QPointer<QWindow> window = someWindow();
  if (!window) return;
  const QPoint from = somePlace(*window);
  const QPoint to = somePlace(*window);
  for (const QPoint at : {from, to}) {
    if (!QRect({}, window->size()).contains(at)) return;
  }
  event([&] { QTest::mousePress(window, Qt::LeftButton, {}, from); });
  for (const QPoint at : {(from + to) / 2, to}) {
    event([&] {
      if (window) QTest::mouseMove(window, at);
    });
  }
  event([&] {
    if (window) QTest::mouseRelease(window, Qt::LeftButton, {}, to);
  });
}

void Hands::turnWheel() {
  QWindow* window = someWindow();
  if (window == nullptr || IsBlocked(*window)) return;
  const QPointF at = somePlace(*window);
  const QPoint turn(0, chance_.oneIn(2) ? 240 : -240);
  const auto modifier = chance_.oneIn(5) ? Qt::ControlModifier : Qt::NoModifier;
  event([&] {
    QWheelEvent wheel(at, window->mapToGlobal(at), {}, turn, Qt::NoButton, modifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(window, &wheel);
  });
}

void Hands::key(int code, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const bool down : {true, false}) {
    event([&] {
      QWindow* window = QGuiApplication::focusWindow();
      if (window == nullptr) window = someWindow();
      // One event: after the first of several the window may be gone.
      if (window != nullptr) QTest::simulateEvent(window, down, code, modifiers, text, false);
    });
  }
}

void Hands::type() {
  for (const QChar letter : QString::fromUtf8(chance_.oneOf(kTexts))) {
    key(letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
  }
}

// What brings proposals in the manual editor, and what may follow while they are seen.
void Hands::write() {
  constexpr std::array kBeginnings = {"  Dam", "  Weapon = PRIMARY ", "  KindOf = ", "End",
                                      "Obj",   "  Armor = t"};
  constexpr std::array kGoingOn = {
      QKeyCombination(Qt::Key_Tab),           QKeyCombination(Qt::Key_Return),
      QKeyCombination(Qt::Key_Down),          QKeyCombination(Qt::Key_Escape),
      QKeyCombination(Qt::Key_PageDown),      QKeyCombination(Qt::Key_Backspace),
      QKeyCombination(Qt::CTRL, Qt::Key_Z),   QKeyCombination(Qt::CTRL, Qt::Key_Space),
      QKeyCombination(Qt::CTRL, Qt::Key_Tab), QKeyCombination(Qt::CTRL, Qt::Key_W)};
  if (QGuiApplication::focusObject() == nullptr || !QGuiApplication::focusObject()->inherits("QsciScintilla"))
    return openFile();
  key(Qt::Key_End, Qt::NoModifier, {});
  key(Qt::Key_Return, Qt::NoModifier, "\r");
  for (const QChar letter : QString(chance_.oneOf(kBeginnings)))
    key(letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
  if (chance_.oneIn(2)) key(Qt::Key_Space, Qt::ControlModifier, {});
  for (int i = chance_.below(4); i > 0; --i) {
    const QKeyCombination keys = chance_.oneOf(kGoingOn);
    key(keys.key(), keys.keyboardModifiers(), {});
  }
}

void Hands::pressKey() {
  const auto modifiers = chance_.oneIn(6) ? Qt::ShiftModifier : Qt::NoModifier;
  const int code = chance_.oneOf(kKeys);
  const bool breaksLine = code == Qt::Key_Return || code == Qt::Key_Enter;
  key(code, modifiers, breaksLine ? QString('\r') : QString());
}

void Hands::pressShortcut() {
  if (chance_.oneIn(4)) return key(Qt::Key_A + chance_.below(26), Qt::AltModifier, {});
  if (chance_.oneIn(2)) {
    const QKeyCombination keys = chance_.oneOf(kSearchKeys);
    return key(keys.key(), keys.keyboardModifiers(), {});
  }
  key(chance_.oneOf(kLetters), Qt::ControlModifier, {});
}

// The key of some command of the window, whichever it has.
void Hands::pressCommandKey() {
  const QWindow* window = QGuiApplication::focusWindow();
  const QWidget* top = window == nullptr ? nullptr : WidgetOf(*window);
  if (top == nullptr) return;
  QList<QKeySequence> keys;
  for (const QAction* action : top->findChildren<QAction*>()) keys += action->shortcuts();
  if (keys.isEmpty()) return;
  const QKeyCombination pressed = chance_.oneOf(keys)[0];
  key(pressed.key(), pressed.keyboardModifiers(), {});
}

void Hands::runCommand() {
  const QWindow* window = someWindow();
  const QWidget* top = window == nullptr || IsBlocked(*window) ? nullptr : WidgetOf(*window);
  if (top == nullptr || !top->isEnabled()) return;
  if (qobject_cast<const QFileDialog*>(top) != nullptr) return;  // a user does not see all of its commands
  QList<QAction*> commands;
  for (QAction* action : top->findChildren<QAction*>()) {
    const bool exits = action->objectName() == "MnuExit" || action->objectName() == "W95MBX01";
    if (action->isEnabled() && action->menu() == nullptr && (!exits || chance_.oneIn(6))) commands += action;
  }
  if (!commands.isEmpty()) event([command = chance_.oneOf(commands)] { command->trigger(); });
}

// A window of that name; where two programs run there may be two.
QWidget* Hands::reachable(const char* windowName) {
  QList<QWidget*> windows;
  for (const QWindow* window : WindowsShown()) {
    QWidget* top = WidgetOf(*window);
    if (top->objectName() == windowName && top->isEnabled() && !IsBlocked(*window)) windows += top;
  }
  return windows.isEmpty() ? nullptr : chance_.oneOf(windows);
}

// Chosen from the menu of a window that the user can reach.
void Hands::choose(const char* windowName, const QString& command) {
  const QWidget* window = reachable(windowName);
  auto* action = window == nullptr ? nullptr : window->findChild<QAction*>(command);
  if (action != nullptr) event([&] { action->trigger(); });
}

void Hands::openFile() {
  choose("FrmEdit", QString("MnuFileEdit%1").arg(chance_.below(17)));
}

void Hands::useTabs() {
  constexpr std::array kCommands = {"nextTab", "nextTab", "previousTab", "closeTab", "reload"};
  choose("FrmManEdit", chance_.oneOf(kCommands));
}

// Some of the game folder, some from outside of it, some that are not there.
void Hands::dropFiles() {
  constexpr std::array kFiles = {"game/Data/INI/Weapon.ini", "game/Data/INI/Armor.ini", "game/Missing.ini",
                                 "data", "game/generals.exe"};
  QPointer<QWidget> text;
  for (const QWindow* window : WindowsShown()) {
    QWidget* found = WidgetOf(*window)->findChild<QWidget*>("TxtManEdit");
    if (found != nullptr && found->isEnabled() && !IsBlocked(*window)) text = found->focusProxy();
  }
  if (!text) return;
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QDir::home().filePath(chance_.oneOf(kFiles))),
                 QUrl::fromLocalFile(QDir::home().filePath(chance_.oneOf(kFiles)))});
  event([&] {
    QDropEvent drop({}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(text, &drop);
  });
}

void Hands::openWindow() {
  QList<Opener> within;
  for (const Opener& opener : kOpeners) {
    if (reachable(opener.window) != nullptr) within += opener;
  }
  if (within.isEmpty()) return;
  const Opener& opener = chance_.oneOf(within);
  choose(opener.window, opener.command);
}

void Hands::save() {
  choose("FrmManEdit", "MnuSave");
}

// In the wizard, which chance alone hardly ever gets to its end.
void Hands::goOn() {
  for (const QWindow* window : WindowsShown()) {
    auto* next = WidgetOf(*window)->findChild<QPushButton*>("cmdNav3");
    if (next != nullptr && next->isEnabled()) return clickOn(*next, next->rect().center());
  }
}

void Hands::clickButton() {
  const QWindow* window = someWindow();
  const QWidget* top = window == nullptr ? nullptr : WidgetOf(*window);
  if (top == nullptr) return;
  QList<QPushButton*> buttons;
  for (auto* button : top->findChildren<QPushButton*>()) {
    const bool cancels = button->objectName() == "cmdNav1";
    const bool usable = button->isVisible() && button->isEnabled() && button->window() == top;
    if (usable && (!cancels || chance_.oneIn(6))) buttons += button;
  }
  if (buttons.isEmpty()) return;
  QPushButton* button = chance_.oneOf(buttons);
  clickOn(*button, button->rect().center());
}

void Hands::clickOn(QWidget& widget, QPoint at) {
  QWidget* top = widget.window();
  if (top->windowHandle() != nullptr) press(Qt::LeftButton, *top->windowHandle(), widget.mapTo(top, at));
}

void Hands::clickObject() {
  QTreeView* tree = ShownTree("TVMenu");
  if (tree == nullptr) return;
  const QAbstractItemModel& model = *tree->model();
  QModelIndex node;
  while (const int rows = model.rowCount(node)) node = model.index(chance_.below(rows), 0, node);
  event([&] { tree->scrollTo(node); });
  clickOn(*tree->viewport(), tree->visualRect(node).center());
}

void Hands::clickEntry() {
  const QWindow* window = someWindow();
  QWidget* top = window == nullptr ? nullptr : WidgetOf(*window);
  if (top == nullptr) return;
  QList<QAbstractItemView*> views;
  for (auto* view : top->findChildren<QAbstractItemView*>()) {
    if (view->isVisible() && view->window() == top) views += view;
  }
  if (views.isEmpty()) return;
  QWidget* rows = chance_.oneOf(views)->viewport();
  clickOn(*rows, {chance_.below(rows->width()), chance_.below(rows->height())});
}

// Of a sentence in a notice bar, such as "Edit in file" and "Read again".
void Hands::followLink() {
  static const QRegularExpression kLink("href=\"([^\"]*)\"");
  for (const QWindow* window : WindowsShown()) {
    const QWidget* top = WidgetOf(*window);
    if (!top->isEnabled() || IsBlocked(*window) || chance_.oneIn(2)) continue;
    QList<QLabel*> labels = top->findChildren<QLabel*>("Notice");
    if (labels.isEmpty()) continue;
    QLabel* label = chance_.oneOf(labels);
    const auto link = kLink.match(label->text());
    if (label->isVisible() && link.hasMatch())
      return event([&] { Q_EMIT label->linkActivated(link.captured(1)); });
  }
}

// Over what a field of the shown object holds.
void Hands::typeValue() {
  const QWidget* window = reachable("FrmEdit");
  if (window == nullptr) return;
  QList<QLineEdit*> fields;
  for (auto* field : window->findChildren<QLineEdit*>()) {
    if (field->isVisible() && field->isEnabled()) fields += field;
  }
  if (fields.isEmpty()) return;
  QLineEdit* field = chance_.oneOf(fields);
  event([&] { field->setFocus(), field->selectAll(); });
  type();
}

void Hands::closeWindow() {
  QWindow* window = someWindow();
  if (window == nullptr || IsBlocked(*window)) return;
  if (WidgetOf(*window)->objectName() == "FrmEdit" && !chance_.oneIn(4)) return;
  event([&] { window->close(); });
}

void Hands::resizeWindow() {
  if (QWindow* window = someWindow()) {
    event([&] { window->resize(1 + chance_.below(kLargest), 1 + chance_.below(kLargest)); });
  }
}

void Hands::moveWindow() {
  if (QWindow* window = someWindow()) {
    event([&] { window->setPosition(chance_.below(kLargest) - 400, chance_.below(kLargest) - 400); });
  }
}

void Hands::changeState() {
  constexpr std::array kStates = {Qt::WindowMinimized, Qt::WindowMaximized, Qt::WindowNoState};
  if (QWindow* window = someWindow()) {
    event([&] { window->setWindowStates(chance_.oneOf(kStates)); });
  }
}

void Hands::changePalette() {
  const QColor window = chance_.oneIn(2) ? QColor(40, 40, 44) : QColor(239, 239, 239);
  event([&] { QApplication::setPalette(QPalette(window)); });
}

void Hands::changeFont() {
  QFont font = QApplication::font();
  font.setPointSize(7 + 6 * chance_.below(3));  // few, as Qt keeps every one
  event([&] { QApplication::setFont(font); });
}

void Hands::fillClipboard() {
  event(
      [&] { QGuiApplication::clipboard()->setText(QString::fromUtf8(chance_.oneOf(kTexts)).repeated(20)); });
}

void Hands::reachFolder(const QString& folder) {
  QTreeView* tree = ShownTree("BrowseTree");
  if (tree == nullptr) return;
  doing_ = "game folder";
  const QAbstractItemModel& model = *tree->model();
  QModelIndex at = model.index(0, 0);
  for (const QString& name : folder.split('/', Qt::SkipEmptyParts)) {
    event([&] { tree->expand(at); });
    at = model.match(model.index(0, 0, at), Qt::DisplayRole, name, 1, Qt::MatchExactly).value(0);
    if (!at.isValid()) return;
  }
  event([&] { tree->setCurrentIndex(at); });
}

}  // namespace korvane
