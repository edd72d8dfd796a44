// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>

#include <array>
#include <optional>

#include "controls/ToolDialog.h"
#include "problems/ProblemsModel.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QToolButton;
class QTreeView;

namespace korvane {

class PlaceLauncher;

// What the checker has found in the game folder. While it is open the data are checked again when files
// change.
class ProblemsWindow : public ToolDialog {
  Q_OBJECT

 public:
  ProblemsWindow(SettingsStore& settings, DataCheck& check, PlaceLauncher& places);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildFilters(QBoxLayout& layout);
  void buildTree();
  void buildFoot(QBoxLayout& layout);
  QToolButton* makeLevelButton(Level level);
  QPushButton* makeButton(const char* name, const char* caption, void (ProblemsWindow::*run)());

  void startCheck() { check_.start(); }
  void cancelCheck();
  void copy();
  void openPlace(const QModelIndex& index);
  void levelToggled(Level level, bool shown);

  ProblemsView view() const;
  void showFindings();
  void restoreSelection();
  void showCounts();
  void showRunning();
  void showProgress(int done, int all);
  QString summary() const;

  SettingsStore& settings_;
  DataCheck& check_;
  PlaceLauncher& places_;
  ProblemsModel* model_;
  QTreeView* tree_;
  QLineEdit* filter_;
  QComboBox* grouping_;
  std::array<QToolButton*, 3> levels_{};  // by Level
  QLabel* state_;
  QProgressBar* progress_;
  QPushButton* cancel_ = nullptr;
  QPushButton* again_ = nullptr;
  bool cancelled_ = false;
  std::optional<Finding> selected_;  // also while it is not shown
  QSet<QString> collapsed_;          // titles of groups
};

// "1 error, 12 warnings".
QString CountsText(const DataCheck::Result& result);

}  // namespace korvane
