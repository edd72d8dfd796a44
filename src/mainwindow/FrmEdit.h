// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <QTreeView>

#include <optional>
#include <utility>
#include <vector>

#include "app/Commands.h"
#include "app/NameSource.h"
#include "app/ObjectErrors.h"
#include "app/ReadingAgain.h"
#include "app/Services.h"
#include "app/UnitChoices.h"
#include "controls/ClickView.h"
#include "controls/NoticeBar.h"
#include "ini/SParse.h"
#include "mainwindow/FileEdits.h"
#include "mainwindow/LastView.h"
#include "mainwindow/LaunchCommands.h"
#include "mainwindow/LineEndNotices.h"
#include "mainwindow/ObjectDisplay.h"
#include "mainwindow/ObjectNotices.h"
#include "mainwindow/ObjectTreeModel.h"
#include "mainwindow/RowMenus.h"
#include "mainwindow/ShownNames.h"
#include "mainwindow/StatusPanels.h"
#include "mainwindow/TypedMarks.h"
#include "mainwindow/UnitFields.h"
#include "platform/Programs.h"

class QToolBar;

namespace korvane {

class CatalogueService;
class EditorLauncher;

// The main window: the object tree, the tab box with the fields of the chosen object, menus, toolbar and
// status bar.
class FrmEdit : public QMainWindow, public UnitChoices, public NameSource {
  Q_OBJECT

 public:
  FrmEdit(const Services& services, EditorLauncher& launcher);

  SParse& parser() { return SParse1_; }
  ObjectTreeModel& objects() { return objects_; }
  const Commands& commands() const { return commands_; }

  // The last steps of start-up: the information list's columns and the weapon lists.
  void prepareInformationList();
  void readWeapons();
  // What a part of the notice bar says from now on.
  void tell(MainNotices part, std::vector<Notice> notices) { notices_->tell(part, std::move(notices)); }
  // From now on the notice bar also says what the catalogue knows of the shown object.
  void useCatalogue(CatalogueService& names) { objectNotices_.useCatalogue(names); }
  void tellLineEnds(std::vector<UnixFile> files) { lineEnds_.tell(std::move(files)); }

  // What the last check of the data has found: how much, and which objects have errors.
  void showProblems(const QString& counts, const std::vector<ObjectErrors>& objects);

  // Which objects the last comparison has found not to be the original's; nothing: there is none.
  void showChanges(const std::optional<std::vector<ObjectChange>>& objects);

  // Selects the object's node and, when it can be shown, loads it as a click does. False when the tree has no
  // such object that can be loaded. `path`: of its file, below the game folder.
  bool showObject(const QString& path, const QString& name);
  std::optional<NameHere> nameHere() const override;
  // The selected object.
  std::optional<ItemPlace> placeHere() const override;

  // A file of the game folder (the program's path) was saved: reads what is shown of it again, as soon as the
  // parser is free. Offers that instead while something is typed.
  void fileSaved(const QString& file);

  // What was seen when the program was last ended, when the user wants that.
  void restoreLastView();

  // Takes the tree's font and the selected tab from the settings.
  void applyOptions();

  // Ends the program at once.
  void CloseSoft();

  // The fields that were typed into, and what the notice bar's link to edit them in their file does.
  TypedMarks& typed() { return typed_; }

  QStringList weaponNames() const override;
  bool armourChosen() const override;
  QString armourText() const;

  // Ends the program and starts it anew, without losing what was typed; no end without a new start.
  void startAgain(ProcessEnd::Rights rights);

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildTree();
  void buildLayout();
  void buildCommands();
  void connectButtons();
  void stepTab(int by);
  void load();
  void hideUnchanged();
  void applyTreeFont();
  void nameFileButton();
  void showSettingsTrouble();
  bool exitConfirmed();
  void exitCommand();
  void leave();
  void remember();
  bool readAgain();

  const Services& services_;
  EditorLauncher& launcher_;
  SParse SParse1_;
  ObjectTreeModel objects_;
  ClickView<QTreeView>* TVMenu_;
  UnitFields fields_;
  QToolBar* Toolbar1_;
  StatusPanels panels_;
  NoticeBar* notices_;
  ObjectNotices objectNotices_;
  LineEndNotices lineEnds_;
  TypedMarks typed_;
  ObjectDisplay* display_ = nullptr;
  LastView lastView_;
  LaunchCommands launch_;
  Commands commands_{*this};
  std::optional<FileEdits> fileEdits_;
  ReadingAgain again_{[this] { return readAgain(); }};
  QString savedFile_;  // the last one that what is shown was read from
  std::optional<RowMenus> menus_;
  std::optional<ShownNames> names_;
  QTimer Timer1_{this};
  bool ConfirmExit_ = true;
};

}  // namespace korvane
