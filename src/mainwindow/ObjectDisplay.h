// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPersistentModelIndex>

#include <functional>
#include <string>

#include "app/Services.h"
#include "files/NativePath.h"
#include "ini/SParse.h"
#include "mainwindow/ChoiceLists.h"
#include "mainwindow/InformationList.h"

class QTreeView;

namespace korvane {

class BusyWindow;
class FrmColData;
class ObjectNotices;
class ObjectTreeModel;
class StatusPanels;
class TypedMarks;
class UnitFields;
struct ObjectNode;

// Shows the node that the user clicks in the object tree: reads the object's values from the game's files
// into the fields, and keeps the fields that depend on each other in step. Nothing here is ever written back.
class ObjectDisplay : public QObject {
  Q_OBJECT

 public:
  ObjectDisplay(QWidget& window, QTreeView& tree, const ObjectTreeModel& model, UnitFields& fields,
                StatusPanels& panels, ObjectNotices& notices, TypedMarks& typed, SParse& parser,
                const Services& services);

  // Shows the node; ignored while something else reads. Keys that come in meanwhile move the tree afterwards,
  // and where they stop is shown too.
  void select(const QModelIndex& index);

  // Reads the shown object once more; where the user is stays as it is. What is typed goes. False, and
  // nothing is done, while something else reads.
  bool readAgain();
  // The fields show values of the file (the program's path).
  bool readsFrom(const QString& file) const;

  // Brings the tab of the settings to the front, if they name one.
  void selectInfoTab();

  ChoiceLists& choices() { return choices_; }
  InformationList& information() { return information_; }
  // The tree's selected node, or nothing.
  const ObjectNode* selectedNode() const;
  // The selected node as an object of the parser; empty texts when nothing is selected.
  SelectedObject selectedObject() const;
  // The object whose values the fields hold; empty texts before the first.
  const SelectedObject& shownObject() const { return shownObject_; }

 Q_SIGNALS:
  // The fields show what the files hold now.
  void wasRead();

 private:
  void connectFields();
  void connectLists();
  // False when something else reads.
  bool selectNow(const QModelIndex& index);
  void showNode(const ObjectNode& node);
  void tellWhoseValues(const ObjectNode& node, bool shown);
  void reportNode(const ObjectNode& node);
  ProgramPath objectPath(const ObjectNode& node) const;

  void showObject(const ObjectNode& node, BusyWindow& busy);
  // Which weapon set and which locomotor are chosen when they have been read.
  enum class Choices { first, kept };
  using StageDone = std::function<void(int)>;
  void readValues(Choices choices, const StageDone& done);
  void readTextFields(const std::string& file, const StageDone& done);
  void readWeaponSets(const std::string& file, Choices choices);
  void readLocomotorTabs(Choices choices);
  void showLocomotorNames(const QStringList& names, int current);

  void conditionChosen(int index);
  void showWeaponsOf(int weaponSet);
  void chooseLocomotorTab(int tab);
  void readLocomotorTab(int tab);
  void showLocomotorOf(int tab);
  void renameLocomotorTab(const QString& name);
  void clearHandlingField(std::size_t field);

  QWidget& window_;
  QTreeView& tree_;
  const ObjectTreeModel& model_;
  UnitFields& fields_;
  StatusPanels& panels_;
  ObjectNotices& notices_;
  TypedMarks& typed_;
  SParse& parser_;
  const Services& services_;
  InformationList information_;
  ChoiceLists choices_;
  SelectedObject shownObject_;
  bool DisplayReady_ = false;
  bool takingKeys_ = false;       // those that came in during a read
  QPersistentModelIndex wanted_;  // where they stopped
  QPersistentModelIndex shownNode_;
  int shownTab_ = -1;
  QString armour_;
  QString valuesOf_;  // the name of the object that was shown last
};

// An empty text for the values of a weapon set that name no weapon, else the text.
QString CleanWeaponName(const QString& text);

}  // namespace korvane
