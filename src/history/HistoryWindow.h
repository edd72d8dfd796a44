// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "app/Worker.h"
#include "controls/ToolDialog.h"
#include "history/FileVersions.h"
#include "textview/ComparedPane.h"

class QAction;
class QBoxLayout;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace korvane {

class ChangeList;
class DifferenceView;
class EditorLauncher;
class FileWriter;
struct Services;

// The kept versions of the files, and what differs between one and the present text, or another one. Texts
// are read and compared in a worker; nothing is ever written into the versions by looking.
class HistoryWindow : public ToolDialog {
  Q_OBJECT

 public:
  HistoryWindow(const Services& services, const FileWriter& files, const KeptVersions& versions,
                EditorLauncher& editors);

  // Chooses the file (the program's path) and one of its versions (native path), or the newest one. A file
  // without versions chooses nothing.
  void showFile(const QString& path, const QString& version = {});
  // The same with the newest version of a part (in UTF-8) of the file, or where none is kept of the file.
  void showPart(const QString& path, std::string_view part);

  // Writes the chosen version to a file (native path); a file that was there is kept first. False, after a
  // message, when that comes to nothing.
  bool saveTo(const QString& file);

 protected:
  bool event(QEvent* event) override;

 private:
  QWidget* makeLists();
  QWidget* makeDifference();
  void buildBar(QBoxLayout& layout);
  void buildFoot(QBoxLayout& layout);
  void buildBottom(QBoxLayout& layout);
  void connectLists();
  QPushButton* makeButton(const char* name, const char* caption, void (HistoryWindow::*run)());
  void makeKey(const char* name, const char* caption, const QKeySequence& key, void (HistoryWindow::*run)());

  void lookAgain();
  void listFiles();
  void fileChosen();
  void listVersions(const QString& chosen);
  void listAgainst();
  void count();
  void showCounts(const std::vector<int>& counts);
  void compare();
  void showPair(const TextPairPtr& pair);
  void showActions();
  void showRoom();
  void showRunning();
  QString shownName(const KeptVersions::File& file) const;
  QString stateOf(const TextPairPtr& pair) const;
  std::optional<std::string> edited(const QString& path) const;

  void cancel();
  void restore();
  void openPart(const FileVersion& version);
  void takeBack();
  void copy();
  void saveAs();
  void forget();
  void nextChange();
  void previousChange();

  // nullptr: none is chosen.
  const KeptVersions::File* file() const;
  const FileVersion* version() const;
  const FileVersion* against() const;

  const Services& services_;
  const FileWriter& writer_;
  const KeptVersions& kept_;
  EditorLauncher& editors_;
  std::vector<KeptVersions::File> files_;
  std::vector<FileVersion> versions_;  // of the chosen file

  QTreeWidget* fileList_;
  QTreeWidget* versionList_;
  ChangeList* changes_;
  QComboBox* against_;
  DifferenceView* view_;
  QLabel* state_;
  QLabel* spaceTaken_;
  QProgressBar* progress_;
  QPushButton* cancel_ = nullptr;
  QPushButton* restore_ = nullptr;
  QPushButton* takeBack_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* saveAs_ = nullptr;
  bool filling_ = false;  // the lists, and not the user, choose
  Worker counter_;
  Worker comparer_;  // go first
};

}  // namespace korvane
