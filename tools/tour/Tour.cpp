// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Tour.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/NativePath.h"
#include "history/CompareWindow.h"
#include "mainwindow/FrmEdit.h"
#include "startup/Program.h"

namespace korvane {

namespace {

// Of the sample game's weapons, and what it becomes.
constexpr std::string_view kChangedLine = "  PrimaryDamage            = 92.5";
constexpr std::string_view kNewLine = "  PrimaryDamage            = 107.5";

constexpr const char* kVersionsPlace = "~/.local/share/Ferncastle Software/Korvane/versions";

constexpr int kUntilMarked = 2000;  // milliseconds behind the last key
constexpr int kMostUndone = 100;    // steps
constexpr int kSettle = 250;        // milliseconds for a window to be laid out and painted

// The tabs of the main window, by the names of their pictures.
constexpr const char* kTabPictures[] = {"tab-handling", "tab-health",      "tab-weapons", "tab-advanced",
                                        "tab-cost",     "tab-information", "tab-other"};
constexpr int kCostTab = 4;
constexpr int kInformationTab = 5;
constexpr const char* kMainObject = "AmericaTank";  // of the main picture: the first that begins so

struct ObjectStop {
  const char* group;
  const char* picture;
};

// One object of each kind.
constexpr ObjectStop kObjectStops[] = {
    {"Player Buildings", "object-player-building"}, {"Player Units", "object-player-unit"},
    {"Player Props", "object-player-prop"},         {"Civilian Buildings", "object-civilian-building"},
    {"Civilian Units", "object-civilian-unit"},     {"Civilian Props", "object-civilian-prop"},
    {"Nature Props", "object-nature-prop"},         {"Nature Units", "object-nature-unit"},
};

std::vector<TextEdit> ChangeWeapon(std::string_view bytes) {
  const std::size_t at = bytes.find(kChangedLine);
  if (at == std::string_view::npos) return {};
  const auto line = std::ranges::count(bytes.substr(0, at), '\n') + 1;
  return {{static_cast<int>(line), 1, static_cast<int>(kChangedLine.size()), std::string(kNewLine)}};
}

// The first object below the node, in the order of the tree.
QModelIndex FirstObject(const ObjectTreeModel& model, const QModelIndex& group) {
  for (int row = 0; row < model.rowCount(group); ++row) {
    const QModelIndex child = model.index(row, 0, group);
    const NodeKind kind = model.node(child)->kind;
    if (kind == NodeKind::object || kind == NodeKind::listed) return child;
    if (const QModelIndex object = FirstObject(model, child); object.isValid()) return object;
  }
  return {};
}

void Click(QAbstractItemView& view, const QModelIndex& entry) {
  view.scrollTo(entry, QAbstractItemView::PositionAtCenter);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(entry).center());
}

// The node of a folder, after its way from the root has been opened.
QModelIndex Reach(QTreeView& folders, const QString& path) {
  const QAbstractItemModel& model = *folders.model();
  const auto child = [&model](const QModelIndex& parent, const QString& name) {
    return model.match(model.index(0, 0, parent), Qt::DisplayRole, name, 1, Qt::MatchExactly).value(0);
  };
  // The last of the places at the top that the path begins with: a drive, or else the root.
  QModelIndex at;
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex place = model.index(row, 0);
    if (path.startsWith(place.data(Qt::UserRole).toString())) at = place;
  }
  const QString rest = path.mid(at.data(Qt::UserRole).toString().size());
  for (const QString& name : rest.split(u'\\', Qt::SkipEmptyParts)) {
    folders.expand(at);
    if (!QTest::qWaitFor([&] { return child(at, name).isValid(); })) return {};
    at = child(at, name);
  }
  return at;
}

// Not every window system gives a window the focus as soon as it is shown.
QWidget* FocusedText(const QWidget& editor) {
  auto* text = editor.findChild<QWidget*>("TxtManEdit")->findChild<QAbstractScrollArea*>();
  text->setFocus();
  return text;
}

}  // namespace

bool Tour::run() {
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());  // on no button
  start();
  objects();
  tabs();
  search();
  manualEditor();
  editInFile();
  problems();
  tableEditors();
  options();
  aboutAndHelp();
  messages();
  history();
  comparison();
  wizard();
  return complete_;
}

void Tour::fail(const QString& reason) {
  std::fprintf(stderr, "%s\n", qPrintable(reason));
  complete_ = false;
}

QWidget* Tour::window(const QString& name) {
  QWidget* found = nullptr;
  const auto look = [&] {
    for (QWidget* shown : QApplication::topLevelWidgets()) {
      if (shown->objectName() == name && shown->isVisible()) found = shown;
    }
    return found != nullptr;
  };
  if (!QTest::qWaitFor(look)) fail("There is no window " + name);
  return found;
}

void Tour::picture(QWidget* shown, const QString& name) {
  if (shown == nullptr) return;
  QTest::qWait(kSettle);
  save(shown->grab(), name);
}

void Tour::save(const QPixmap& picture, const QString& name) {
  const QString file = folder_ + '/' + name + ".png";
  if (!picture.save(file)) fail("Cannot write " + file);
  std::printf("%s\n", qPrintable(file));
}

void Tour::trigger(const QString& windowName, const QString& action) {
  QWidget* shown = window(windowName);
  auto* found = shown == nullptr ? nullptr : shown->findChild<QAction*>(action);
  if (found == nullptr) return fail("There is no command " + action);
  found->trigger();
  QTest::qWait(kSettle);
}

void Tour::start() {
  // The splash shows itself while start-up lets events run; the last picture of it stays.
  const QString file = folder_ + "/splash.png";
  bool seen = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    for (QWidget* shown : QApplication::topLevelWidgets()) {
      if (shown->objectName() == "frmSplash" && shown->isVisible()) seen = shown->grab().save(file);
    }
  });
  watch.start(0);
  program_.StartProgram();
  watch.stop();
  if (!seen) fail("The splash was not seen");
  std::printf("%s\n", qPrintable(file));
  picture(window("FrmEdit"), "start");
}

void Tour::showObject(const QString& group, const QString& pictureName) {
  QTreeView& tree = objectTree();
  const ObjectTreeModel& model = program_.mainWindow().objects();
  const QModelIndex category =
      model.match(model.index(0, 0), Qt::DisplayRole, group, 1, Qt::MatchExactly).value(0);
  const QModelIndex object = FirstObject(model, category);
  if (!object.isValid()) return fail("There is no object below " + group);
  Click(tree, object);
  picture(window("FrmEdit"), pictureName);
}

QTreeView& Tour::objectTree() {
  return *program_.mainWindow().findChild<QTreeView*>("TVMenu");
}

void Tour::objects() {
  for (const ObjectStop& stop : kObjectStops) showObject(stop.group, stop.picture);
}

void Tour::tabs() {
  QTreeView& tree = objectTree();
  Click(tree, tree.model()
                  ->match(tree.model()->index(0, 0), Qt::DisplayRole, kMainObject, 1,
                          Qt::MatchStartsWith | Qt::MatchRecursive)
                  .value(0));
  auto* tabBox = program_.mainWindow().findChild<QTabWidget*>("F_Tab");
  tabBox->setCurrentIndex(kInformationTab);
  picture(window("FrmEdit"), "main");
  for (int tab = 0; tab < tabBox->count(); ++tab) {
    tabBox->setCurrentIndex(tab);
    picture(window("FrmEdit"), kTabPictures[tab]);
  }
}

void Tour::search() {
  trigger("FrmEdit", "findAnything");
  auto* field = program_.mainWindow().findChild<QLineEdit*>("findAnythingField");
  QTest::keyClicks(field, "tank");
  const auto* rows = program_.mainWindow().findChild<QListView*>("findAnythingList")->model();
  if (!QTest::qWaitFor([rows] { return rows->rowCount() > 0; })) fail("Nothing was found");
  picture(window("FrmEdit"), "find-anything");
  QTest::keyClick(field, Qt::Key_Escape);
  objectTree().setFocus();
  trigger("FrmEdit", "namesUsed");
  picture(window("UsesWindow"), "names-used");
  if (QWidget* uses = window("UsesWindow")) uses->close();
}

void Tour::manualEditor() {
  trigger("FrmEdit", "MnuFileEdit0");
  picture(window("FrmManEdit"), "manual-editor");
  if (QWidget* editor = window("FrmManEdit")) proposals(*editor);
  for (const char* file : {"MnuFileEdit1", "MnuFileEdit4"}) {
    trigger("FrmEdit", file);
    window("FrmManEdit");
  }
  picture(window("FrmManEdit"), "manual-editor-tabs");
  for (int i = 0; i < 2; ++i) trigger("FrmManEdit", "closeTab");
  trigger("FrmManEdit", "MnuReplace");
  picture(window("FrmReplace"), "replace");
  if (QWidget* replace = window("FrmReplace")) replace->close();
  if (QWidget* editor = window("FrmManEdit")) editor->close();
}

// A weapon set is written at the end of the text, as far as the names that it may have. The list of them is a
// window of its own.
void Tour::proposals(QWidget& editor) {
  QWidget* text = FocusedText(editor);
  QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
  for (const char* line : {"Object MyTank", "  WeaponSet", "    Weapon = PRIMARY "}) {
    QTest::keyClick(text, Qt::Key_Return);
    QTest::keyClicks(text, line);
  }
  auto* list = editor.findChild<QListView*>("ProposalList");
  const auto hasNames = [&] {
    QTest::keyClick(text, Qt::Key_Space, Qt::ControlModifier);
    return list->model()->rowCount() > 5;
  };
  if (!QTest::qWaitFor(hasNames)) fail("Nothing is proposed");
  QTest::qWait(kSettle);
  QPixmap both = editor.grab();
  QPainter(&both).drawPixmap(editor.mapFromGlobal(list->mapToGlobal(QPoint())), list->grab());
  save(both, "completion");
  QTest::keyClick(text, Qt::Key_Escape);
  for (int keys = 0; keys < kMostUndone && editor.windowTitle().endsWith('*'); ++keys) {
    QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
  }
}

// The window with the notes about the game's data, for these have no error; then one is typed.
void Tour::problems() {
  trigger("FrmEdit", "checkData");
  QWidget* shown = window("ProblemsWindow");
  if (shown == nullptr) return;
  shown->findChild<QAbstractButton*>("notes")->click();
  const auto* found = shown->findChild<QTreeView*>("findings")->model();
  if (!QTest::qWaitFor([found] { return found->rowCount() > 0; })) fail("Nothing was found");
  picture(shown, "problems");
  shown->findChild<QAbstractButton*>("furtherData")->click();
  auto* furtherData = shown->findChild<QDialog*>("FurtherDataDialog");
  picture(furtherData, "further-data");
  if (furtherData != nullptr) furtherData->close();
  shown->close();
  trigger("FrmEdit", "MnuFileEdit0");
  QWidget* editor = window("FrmManEdit");
  if (editor == nullptr) return;
  QWidget* text = FocusedText(*editor);
  QTest::keyClicks(text, "words ");
  QTest::qWait(kUntilMarked);
  trigger("FrmManEdit", "nextProblem");
  picture(editor, "findings");
  QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
  editor->close();
}

QString Tour::original() const {
  return gameFolder_.section('\\', 0, -2) + "\\Original";
}

// A value is changed and saved, after a copy of the game was made that is the original.
void Tour::history() {
  const auto native = [](const QString& path) { return NativePath(ProgramPath(path.toStdString())); };
  std::error_code error;
  std::filesystem::copy(native(gameFolder_), native(original()), std::filesystem::copy_options::recursive,
                        error);
  const bool changed = program_.editInManualEditor(gameFolder_ + "\\Data\\INI\\Weapon.ini", ChangeWeapon);
  if (error || !changed) return fail("Nothing was changed");
  QTest::qWait(kSettle);
  trigger("FrmManEdit", "MnuSave");
  trigger("FrmManEdit", "showHistory");
  QWidget* shown = window("HistoryWindow");
  if (shown == nullptr) return;
  auto* space = shown->findChild<QLabel*>("spaceTaken");  // names no place of this machine's
  space->setText(space->text().section(" in ", 0, 0) + " in " + kVersionsPlace);
  picture(shown, "history");
  shown->close();
  if (QWidget* editor = window("FrmManEdit")) editor->close();
}

void Tour::comparison() {
  trigger("FrmEdit", "compareOriginal");
  auto* shown = qobject_cast<CompareWindow*>(window("CompareWindow"));
  if (shown == nullptr) return;
  shown->chooseOriginal(original());
  auto* items = shown->findChild<QTreeView*>("items");
  if (!QTest::qWaitFor([items] { return items->model()->rowCount() > 0; })) fail("Nothing differs");
  items->expandAll();
  const QModelIndex kind = items->model()->index(0, 0);
  items->setCurrentIndex(items->model()->index(0, 0, items->model()->index(0, 0, kind)));
  picture(shown, "compare");
  shown->close();
}

void Tour::editor(const char* action, const char* windowName, const QString& pictureName) {
  trigger("FrmEdit", action);
  QWidget* shown = window(windowName);
  if (shown == nullptr) return;
  auto& list = *shown->findChild<QListView*>("LstWPN");
  Click(list, list.model()->index(0, 0));
  picture(shown, pictureName);
}

void Tour::editInFile() {
  QWidget& main = program_.mainWindow();
  auto* cost = main.findChild<QLineEdit*>("TxtCost");
  main.findChild<QTabWidget*>("F_Tab")->setCurrentIndex(kCostTab);
  cost->setFocus();
  cost->selectAll();
  QTest::keyClicks(cost, "950");
  picture(window("FrmEdit"), "edit-in-file-typed");
  trigger("FrmEdit", "editInFile");
  picture(window("FrmManEdit"), "edit-in-file");
  if (QWidget* editor = window("FrmManEdit")) editor->close();
}

void Tour::tableEditors() {
  editor("MnuWe", "FrmWE", "weapon-editor");
  editor("MnuArmour", "FrmArmour", "armour-editor");
  trigger("FrmArmour", "Test");
  picture(window("FrmAmrPar"), "insert-parameter");
  editor("MnuCmdSetEditor", "FrmCmdSet", "command-set-editor");
  trigger("FrmCmdSet", "MnuCmdFormat");
  picture(window("CmdSetFormat"), "command-set-format");
  editor("MnuCmdBtnEditor", "FrmCmdBtn", "command-button-editor");
  for (const char* name : {"FrmAmrPar", "CmdSetFormat", "FrmWE", "FrmArmour", "FrmCmdSet", "FrmCmdBtn"}) {
    if (QWidget* shown = window(name)) shown->close();
  }
}

void Tour::options() {
  trigger("FrmEdit", "MnuOpt");
  QWidget* shown = window("FrmOpt");
  if (shown == nullptr) return;
  auto* tabBox = shown->findChild<QTabWidget*>("SSTab1");
  const char* const names[] = {"options-general", "options-menu", "options-manual-editor"};
  int tab = 0;
  for (const char* name : names) {
    tabBox->setCurrentIndex(tab++);
    picture(shown, name);
  }
  shown->close();
}

void Tour::aboutAndHelp() {
  trigger("FrmEdit", "MnuHelp_About");
  picture(window("frmAbout"), "about");
  trigger("frmAbout", "MnuFun");
  picture(window("FrmFun"), "extras");
  for (const char* name : {"FrmFun", "frmAbout"}) {
    if (QWidget* shown = window(name)) shown->close();
  }
  trigger("FrmEdit", "MnuHelp_HelpCont");
  picture(window("FrmHelp"), "help");
  if (QWidget* shown = window("FrmHelp")) shown->close();
}

void Tour::message(const std::function<void()>& action, const QString& name) {
  QTimer::singleShot(kSettle, [this, name] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return fail("There is no message for " + name);
    picture(box, name);
    box->close();
  });
  action();
}

void Tour::messages() {
  const auto press = [this](const char* button) {
    program_.mainWindow().findChild<QAbstractButton*>(button)->click();
  };
  message([&] { press("DISK12"); }, "message-note");
  message([this] { program_.mainWindow().close(); }, "message-quit");
}

void Tour::wizard() {
  program_.showWizard();
  QWidget* shown = window("frmWizard");
  if (shown == nullptr) return;
  const auto next = [shown] { shown->findChild<QAbstractButton*>("cmdNav3")->click(); };
  picture(shown, "wizard-introduction");
  next();
  auto* folders = shown->findChild<QTreeView*>("BrowseTree");
  if (folders == nullptr) return fail("There is no folder tree");
  folders->setCurrentIndex(Reach(*folders, gameFolder_));
  folders->scrollTo(folders->currentIndex(), QAbstractItemView::PositionAtCenter);
  picture(shown, "wizard-folder");
  next();
  picture(shown, "wizard-files");
  next();
  picture(shown, "wizard-finished");
}

}  // namespace korvane
