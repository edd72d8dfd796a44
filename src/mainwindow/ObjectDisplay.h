// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPersistentModelIndex>

#include <array>
#include <string>

#include "controls/Services.h"
#include "ini/SParse.h"
#include "ini/TVItem.h"
#include "mainwindow/InformationList.h"

class QLabel;
class QTreeView;

namespace korvane {

class FrmColData;
class ObjectTreeModel;
class UnitFields;
struct ObjectNode;

// Shows the node that the user clicks in the object tree: reads the object's values from the game's files
// into the fields, and keeps the fields that depend on each other in step. Nothing here is ever written back.
class ObjectDisplay : public QObject {
  Q_OBJECT

 public:
  using StatusPanels = std::array<QLabel*, 3>;

  ObjectDisplay(QWidget& window, QTreeView& tree, const ObjectTreeModel& model, UnitFields& fields,
                StatusPanels panels, SParse& parser, const Services& services);

  // Shows the node; ignored while something else reads.
  void select(const QModelIndex& index);

  // Reads "Weapon.ini" into the weapon lists.
  void readWeapons();

  // A remark in the first panel, with room for it, until a node is chosen.
  void showRemark(const QString& text);

  InformationList& information() { return information_; }
  // The tree's selected node, or nothing.
  const ObjectNode* selectedNode() const;
  // The selected node as an object of the parser; empty texts when nothing is selected.
  SelectedObject selectedObject() const;

 private:
  class BusyWindow;

  void connectFields();
  void connectLists();
  void showInPanel(int panel, const QString& text);
  void reportNode(const ObjectNode& node);
  std::string objectPath(const ObjectNode& node) const;

  void showObject(const ObjectNode& node, BusyWindow& busy);
  void readTextFields(const std::string& file, FrmColData& progress);
  void readWeaponSets(const std::string& file);
  void readLocomotorTabs();
  void readChoices(FrmColData& progress);

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
  StatusPanels panels_;
  SParse& parser_;
  const Services& services_;
  InformationList information_;
  TVItem TVItem1_;  // weapons
  TVItem TVItem2_;  // locomotors
  TVItem TVItem3_;  // armours
  bool DisplayReady_ = false;
  QPersistentModelIndex shownNode_;
  int shownTab_ = -1;
  QString armour_;
};

// An empty text for the values of a weapon set that name no weapon, else the text.
QString CleanWeaponName(const QString& text);

}  // namespace korvane
