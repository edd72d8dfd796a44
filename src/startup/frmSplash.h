// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

#include <vector>

#include "app/Services.h"
#include "catalogue/LineEnds.h"

class QLabel;
class QProgressBar;

namespace korvane {

class StartupWindows;

// The splash window: checks the program's own files and the game folder, builds the object tree, and ends
// with the main window or the setup wizard on the screen, or with the end of the process.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  // `folders`: those of the services, into which the game folder is written. `arguments`: the command line
  // behind the program's name, as one text.
  frmSplash(const Services& services, Folders& folders, StartupWindows& windows, QString arguments);

  // Shows the window and runs the whole start-up; the window is closed when it returns.
  void load();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildWindow();
  void animate();

  void IdentifyFixProblems();
  // True when there was one, and the user has been told; the program can then not go on.
  bool removeManifest();
  // True when some are missing.
  bool tellMissingStockData();
  QString MissingFiles() const;
  QString iniFolder() const;
  bool INIExist() const;

  void openEditor();
  void BuildObjectTree();
  std::vector<UnixFile> filesWithUnixLineEnds() const;
  void showWizardAndClose();
  void endProgram();

  const Services& services_;
  Folders& folders_;
  StartupWindows& windows_;
  QString arguments_;
  QLabel* Label1_;
  QLabel* lblVersion_;
  QProgressBar* ProgressBar1_;
  QTimer Timer1_{this};
  std::vector<UnixFile> otherUnixFiles_;
  int animationState_ = 0;  // 1 to 4 once the checks begin
  bool ended_ = false;      // the process is about to end: no further step
};

}  // namespace korvane
