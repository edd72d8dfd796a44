// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "app/Places.h"
#include "app/Worker.h"
#include "controls/ToolDialog.h"
#include "history/ComparisonModel.h"
#include "textview/ComparedPane.h"

class QBoxLayout;
class QCheckBox;
class QFileDialog;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QToolButton;
class QTreeView;

namespace korvane {

class DifferenceView;
class FileWriter;
struct ExportFormat;
struct Services;

// What the game folder changes of the original game: item by item and key by key, the chosen one as text side
// by side.
class CompareWindow : public ToolDialog {
  Q_OBJECT

 public:
  CompareWindow(const Services& services, const FileWriter& files, DataComparison& comparison,
                PlaceLauncher& places);

  // Compares with this folder or archive (the program's path) from now on; empty: the archives in the game
  // folder. Nothing happens, after a message, when there is nothing to compare with in it.
  void chooseOriginal(const QString& path);
  // Writes all that was found to a file (native path). False, after a message, when that comes to nothing.
  bool exportTo(const QString& file, const ExportFormat& format);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildHead(QBoxLayout& layout);
  void buildFilters(QBoxLayout& layout);
  void buildTree();
  void buildFoot(QBoxLayout& layout);
  QToolButton* makeStateButton(ItemState state);
  QPushButton* makeButton(const char* name, const char* caption, void (CompareWindow::*run)());
  QWidget* makeTexts();
  void connectComparison();
  QPushButton* makeOriginalButton();
  QPushButton* makeExportButton();
  void makeKey(const char* name, const char* caption, const QKeySequence& key, void (CompareWindow::*run)());

  void compareAgain();
  void cancel();
  void askFolder();
  void askArchive();
  void choose(QFileDialog& dialog);
  void askExport(const ExportFormat& format);
  void copy();
  void showInOriginal();
  void showInModification();
  void nextChange();
  void previousChange();
  void goToText();

  void showResult();
  void showItem();
  void showPair(const TextPairPtr& pair);
  void goToKey();
  void showOriginal();
  void showCounts();
  void showRunning();
  void showActions();
  QString summary() const;
  QString skippedFiles() const;

  const Services& services_;
  const FileWriter& writer_;
  DataComparison& comparison_;
  PlaceLauncher& places_;
  ComparisonModel* model_;
  QTreeView* tree_;
  QLineEdit* filter_;
  QCheckBox* text_;
  DifferenceView* view_;
  std::array<QToolButton*, kItemStates.size()> states_{};
  QLabel* original_;
  QLabel* state_;
  QProgressBar* progress_;
  QPushButton* cancel_ = nullptr;
  QPushButton* again_ = nullptr;
  QPushButton* export_ = nullptr;
  QPushButton* inOriginal_ = nullptr;
  QPushButton* inModification_ = nullptr;
  bool cancelled_ = false;
  const ItemChange* shown_ = nullptr;  // in the texts, or on its way there
  Worker reader_;                      // goes first
};

}  // namespace korvane
