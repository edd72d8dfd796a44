// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringListModel>

#include <array>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QTabBar;
class QTabWidget;
class QToolButton;
class QWidget;

namespace korvane {

class InPlaceTable;
class MaskedField;

inline constexpr int kHandlingFields = 9;
// What the information list calls them.
inline constexpr std::array<const char*, kHandlingFields> kHandlingLabels = {"Surfaces",
                                                                             "Top Speed",
                                                                             "Top Speed When Damaged",
                                                                             "Turn Rate",
                                                                             "Turn Rate When Damaged",
                                                                             "Acceleration",
                                                                             "Acceleration When Damaged",
                                                                             "Braking",
                                                                             "Min Turn Speed"};

// The tab box of the main window with the fields that show an object. It builds them and holds them; what
// they show and do is decided elsewhere. All widgets belong to the tab box.
class UnitFields {
 public:
  UnitFields();

  QTabWidget* F_Tab;

  QComboBox* CboLocomotor;
  QToolButton* locomotorLink;
  QTabBar* LocoTab;
  std::array<MaskedField*, kHandlingFields> HS_TextBox;
  std::array<QPushButton*, kHandlingFields> HS_ClearBtn;

  QLineEdit* MHealth;
  QLineEdit* IHealth;
  QComboBox* CboArmour;
  QPushButton* Command2;
  QToolButton* armourLink;

  QComboBox* Conditions;
  QComboBox* PWeapon;
  QComboBox* SWeapon;
  QComboBox* TWeapon;
  QPushButton* PWeaponEdit;
  QPushButton* SWeaponEdit;
  QPushButton* TWeaponEdit;
  QToolButton* primaryLink;
  QToolButton* secondaryLink;
  QToolButton* tertiaryLink;

  QPushButton* CmdME_FINI;
  QPushButton* Btn_LEdit;
  QPushButton* Btn_FEdit;

  QLineEdit* TxtCost;
  QLineEdit* TxtBS;

  QComboBox* CboLoco;
  QComboBox* CondCombo;
  InPlaceTable* LstInfo;

  QLineEdit* TxtSCR;
  QLineEdit* TxtVisRange;

  // The choices of the three weapon lists, which are always the same.
  QStringListModel* weapons;

 private:
  QWidget* handlingTab();
  void addHandlingField(QFormLayout* form, std::size_t i);
  QWidget* healthTab();
  QWidget* weaponsTab();
  QWidget* advancedTab();
  QWidget* costTab();
  QWidget* informationTab();
  QWidget* otherTab();
};

// The caption of a tab, and a new one. A "&" in it is shown, not taken for the mark of a mnemonic.
QString TabCaption(const QTabBar& tabs, int tab);
void SetTabCaption(QTabBar& tabs, int tab, QString caption);

// Sets the text of a list with editable text, and shows it from its start.
void ShowText(QComboBox& list, const QString& text);

// Replaces the entries of a list with editable text; the text stays.
void ReplaceEntries(QComboBox& list, const QStringList& entries);
// Leaves no entry chosen and no text.
void EmptyText(QComboBox& list);

}  // namespace korvane
