// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QStringList>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

#include "controls/ToolDialog.h"

namespace korvane {

class FontChooser;
class SettingsStore;

// The options window: the main window's first tab, the question before the exit, the font of the object
// tree, and the manual editor's find history.
class FrmOpt : public ToolDialog {
  Q_OBJECT

 public:
  FrmOpt(SettingsStore& store, FontChooser& fonts, QWidget* parent = nullptr);

 Q_SIGNALS:
  void optionsApplied();  // the choices are in the store: show them
  void searchHistoryCleared();

 private:
  static constexpr int kFontLabels = 6;

  QWidget* generalPage();
  QWidget* menuPage();
  QWidget* manualEditorPage();
  QWidget* buttonRow();
  void load();
  void loadFont();
  void watchChanges();
  void ApplySet();
  void applyAndStay();
  void applyAndClose();
  void chooseFont();
  void clearSearchHistory();
  void showFont(const QStringList& values);

  SettingsStore& store_;
  FontChooser& fonts_;

  QFont font_;

  QComboBox* tab_ = nullptr;
  QCheckBox* exit_ = nullptr;
  QCheckBox* restore_ = nullptr;
  QCheckBox* complete_ = nullptr;
  std::array<QLabel*, kFontLabels> fontLabels_{};
  QPushButton* apply_ = nullptr;
};

}  // namespace korvane
