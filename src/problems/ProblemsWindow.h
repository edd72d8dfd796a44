// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>

#include <array>
#include <optional>

#include "controls/ToolDialog.h"
#include "problems/FindingEdits.h"
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

class CatalogueService;
class EditorLauncher;
class PlaceLauncher;
struct Services;

// What the checker has found in the game folder. While it is open the data are checked again when files
// change.
class ProblemsWindow : public ToolDialog {
  Q_OBJECT

 public:
  ProblemsWindow(const Services& services, CatalogueService& names, DataCheck& check, PlaceLauncher& places,
                 EditorLauncher& editors);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildFilters(QBoxLayout& layout);
  void buildTree();
  void buildFoot(QBoxLayout& layout);
  QToolButton* makeLevelButton(Level level);
  QPushButton* makeButton(const char* name, const char* caption, void (ProblemsWindow::*run)());
  QAction* makeAction(const char* name, const char* caption, const QKeySequence& key,
                      void (ProblemsWindow::*run)());

  void startCheck() { check_.start(); }
  void cancelCheck();
  void copy();
  void ignoreHere() { mend(Mend::ignore); }
  void applySuggestion() { mend(Mend::suggest); }
  void mend(Mend mend);
  void askFurtherData();
  void takeFurtherData(const QStringList& paths);
  void showInFile();
  void openPlace(const QModelIndex& index);
  void levelToggled(Level level, bool shown);

  ProblemsView view() const;
  void showFindings();
  void restoreSelection(int before);
  Findings selectedFindings() const;
  void showActions();
  void showCounts();
  void showRunning();
  void showProgress(int done, int all);
  QString summary() const;

  const Services& services_;
  SettingsStore& settings_;
  CatalogueService& names_;
  DataCheck& check_;
  PlaceLauncher& places_;
  EditorLauncher& editors_;
  ProblemsModel* model_;
  QTreeView* tree_;
  QLineEdit* filter_;
  QComboBox* grouping_;
  std::array<QToolButton*, 3> levels_{};  // by Level
  QLabel* state_;
  QProgressBar* progress_;
  QPushButton* cancel_ = nullptr;
  QPushButton* again_ = nullptr;
  std::array<QAction*, 2> mends_{};  // by Mend
  std::array<QPushButton*, 2> mendButtons_{};
  bool cancelled_ = false;
  std::optional<Finding> selected_;  // also while it is not shown
  QSet<QString> collapsed_;          // titles of groups
};

// "1 error, 12 warnings".
QString CountsText(const DataCheck::Result& result);

}  // namespace korvane
