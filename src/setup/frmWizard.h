// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "platform/WindowCalls.h"
#include "setup/GameFolderCheck.h"

class QPushButton;

namespace korvane {

class DBCtlView;
class FileWriter;
class FolderChooser;
class StockRestoration;
class WizardSteps;
struct Message;
struct RestoredFile;
struct Services;

// The setup wizard: four steps from the choice of the game folder to the stock files restored in it.
class frmWizard : public QWidget {
  Q_OBJECT

 public:
  enum class Direction { none, back, next };

  // The stock database lies in the program folder.
  frmWizard(const Services& services, FolderChooser& chooser, const FileWriter& writer);
  ~frmWizard() override;

  // The box that hosts the folder tree.
  QWidget* PicBrouse() const;

  void SetStep(int step, Direction direction);
  void SetNavBtns(int step);
  void SetCaption(int step);

 Q_SIGNALS:
  // The user pressed Finish: start up again. The wizard closes when this has returned.
  void finished();
  // The window can go, see WindowCalls.
  void closedForGood();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum Nav { help, cancel, back, next, finish };
  static constexpr int kNavCount = 5;

  void build();
  QWidget* makeNavStrip();
  void fitToContents();
  QPushButton& nav(Nav button) const { return *cmdNav_[button]; }
  void pressPrimary();
  void focusStep();

  void onTimer();
  void cutSelectedFolder();

  void onNav(Nav button);
  void navigate(Nav button);
  void showHelp();
  void giveUp();
  void goOn();
  void finishUp();
  bool gameFolderChosen();
  void putFolderBack();

  bool isRestoring() const;
  void restoreStockFiles();
  std::vector<RestoredFile> restoreMissing(StockRestoration& restoration,
                                           const std::function<bool()>& goesOn);
  void showProgress(int done, int all);
  // What the reason of a refused file says can be done.
  void offerAdministrator(const std::vector<RestoredFile>& files);

  // Tells the user, then closes the wizard and ends the program.
  void endWith(const Message& failure);

  const Services& services_;
  FolderChooser& chooser_;
  WizardSteps* steps_;
  DBCtlView* DB_;
  QWidget* picNav_ = nullptr;
  std::array<QPushButton*, kNavCount> cmdNav_{};
  QTimer timer1_{this};
  GameFolderCheck gameFolderCheck_;
  WindowCalls calls_{*this, [this] { Q_EMIT closedForGood(); }};

  int CurrentStep = 0;
  std::optional<QString> folderAtStart_;  // stored when the wizard was shown first
  bool FinishOK = false;
  bool Cancelled = false;
  bool Finished = false;
  bool finishWanted_ = false;  // as soon as the files are restored
  int restorings_ = 0;         // number of restorings started; an older one stops when it changes
};

}  // namespace korvane
