// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QSortFilterProxyModel>

#include "app/Commands.h"
#include "app/EditorLauncher.h"
#include "app/NameSource.h"
#include "catalogue/Catalogue.h"
#include "controls/ToolDialog.h"
#include "search/LineFinder.h"
#include "search/LineSearches.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace korvane {

class CatalogueService;
class FoundTree;

// Lines of the game's files as a tree: what uses a name, which names a block uses, or where a text stands.
// Everything is looked for in a worker.
class UsesWindow : public ToolDialog, public NameSource {
  Q_OBJECT

 public:
  UsesWindow(SettingsStore& settings, CatalogueService& names, PlaceLauncher& places);

  void showUses(const NameHere& name);
  // The names in the block, see NameSource::blockHere.
  void showNamesUsedBy(const ItemPlace& block);
  // Puts the keyboard into the field for a text to find in all files, the text in it unless that is empty.
  void askForText(const QString& text);

  // The name that the chosen row stands for.
  std::optional<NameHere> nameHere() const override;

  const Commands& commands() const { return commands_; }

 Q_SIGNALS:
  // Any but that for a text in all files.
  void searchAsked(SearchCommand command);

 private:
  enum class Subject { nothing, uses, namesUsed, text };

  QWidget* makeTextRow();
  QWidget* makeTree();
  QWidget* makeButtonRow();
  void makeCommands();

  void follow(Subject subject);
  void ask();
  void askAgain();
  void namesChanged();
  LineFinder::Search search() const;
  void findText();
  void take(const FoundLines& found);
  void end(bool stopped);

  void showTitle();
  void showState(const QString& state = {});
  QString counted(const char* one, const char* many) const;
  void filter(const QString& text);
  void expandFew();
  void openPlace(const QModelIndex& index);
  void showInFile();
  void showNamesOfChosen();
  void copyAsText() const;

  CatalogueService& names_;
  PlaceLauncher& places_;
  Commands commands_{*this};
  FoundTree* found_;
  QSortFilterProxyModel filtered_;

  QLineEdit* text_ = nullptr;
  QCheckBox* expression_ = nullptr;
  QCheckBox* wholeWords_ = nullptr;
  QCheckBox* letterCase_ = nullptr;
  QPushButton* find_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QTreeView* tree_ = nullptr;
  QLabel* state_ = nullptr;

  Subject subject_ = Subject::nothing;
  NameHere name_;
  ItemPlace block_;
  FilePlace place_;  // of the block, in asked_
  TextToFind sought_;
  CataloguePtr asked_;   // that the answer comes from
  bool wanted_ = false;  // an answer of the next catalogue, if that is another one
  int definitions_ = 0;
  QSet<QString> nowhere_;
  QStringList skipped_;
  bool full_ = false;
  LineFinder finder_;  // goes first
};

}  // namespace korvane
