// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/frmWizard.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>

#include "app/Services.h"
#include "controls/Placement.h"
#include "controls/StoredFont.h"
#include "platform/EventYield.h"
#include "platform/HelpViewer.h"
#include "platform/MessageBoxes.h"
#include "platform/Programs.h"
#include "settings/SettingsStore.h"
#include "setup/DBCtlView.h"
#include "setup/ErrorReport.h"
#include "setup/FolderChooser.h"
#include "setup/ResStrings.h"
#include "setup/RestoreReport.h"
#include "setup/WizardSteps.h"
#include "stock/DatabaseError.h"
#include "stock/StockRestoration.h"

namespace korvane {

namespace {

constexpr int kWindowTag = 10;
constexpr int kFirstNavTag = 100;
constexpr int kTimerMs = 1;

enum Step { introduction, folder, restore, closing };

// Where no font was ever stored for the object tree, stores the desktop's own one, plain and at its own size.
void StoreFirstTreeFont(SettingsStore& store) {
  if (AnyStored(store, kTreeFont)) return;
  const QFontInfo desktop(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
  SaveFont(store, kTreeFont, QFont(desktop.family(), desktop.pointSize()));
}

}  // namespace

frmWizard::frmWizard(const Services& services, FolderChooser& chooser, const FileWriter& writer)
    : services_(services),
      chooser_(chooser),
      steps_(new WizardSteps(this)),
      DB_(new DBCtlView(services.messages, writer, this)) {
  build();
  LoadResStrings(*this);
  const QString intro = services_.settings.getOfWizards("WizardTemplate", "IntroductionScreen", {});
  if (intro == "ShowIntro") {
    SetStep(folder, Direction::next);
  } else {
    SetStep(introduction, Direction::none);
  }
  fitToContents();
}

frmWizard::~frmWizard() = default;

void frmWizard::build() {
  setObjectName("frmWizard");
  setProperty(kTag, kWindowTag);
  DB_->setObjectName("DB");
  DB_->hide();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(steps_, 1);
  layout->addWidget(makeNavStrip());
  steps_->PicBrouse->installEventFilter(this);
  picNav_->installEventFilter(this);
  timer1_.setObjectName("Timer1");
  timer1_.setInterval(kTimerMs);
  connect(&timer1_, &QTimer::timeout, this, &frmWizard::onTimer);
}

QWidget* frmWizard::makeNavStrip() {
  picNav_ = new QWidget;
  picNav_->setObjectName("picNav");
  auto* row = new QHBoxLayout(picNav_);
  row->setContentsMargins(0, 0, 0, 0);
  for (int i = 0; i < kNavCount; ++i) {
    auto* button = new QPushButton;
    button->setObjectName(QString("cmdNav%1").arg(i));
    button->setProperty(kTag, kFirstNavTag + i);
    connect(button, &QPushButton::clicked, this, [this, i] { onNav(static_cast<Nav>(i)); });
    row->addWidget(button);
    if (i == help) row->addStretch(1);
    cmdNav_[static_cast<std::size_t>(i)] = button;
  }
  return picNav_;
}

// No text is cut off in the least size, whatever the font.
void frmWizard::fitToContents() {
  ensurePolished();
  layout()->activate();
  const QSize least = layout()->totalMinimumSize();
  setMinimumSize(least);
  resize(least);
}

QWidget* frmWizard::PicBrouse() const {
  return steps_->PicBrouse;
}

void frmWizard::SetStep(int step, Direction) {
  if (step == restore) nav(cancel).setEnabled(false);
  if (step == closing) FinishOK = true;
  steps_->turn(CurrentStep, step);
  SetCaption(step);
  SetNavBtns(step);
  focusStep();
}

void frmWizard::SetCaption(int step) {
  setWindowTitle("Command And Conquer Generals - Korvane Setup Wizard - " + ResString(steps_->titleId(step)));
}

void frmWizard::SetNavBtns(int step) {
  CurrentStep = step;
  nav(back).setEnabled(step > introduction);
  nav(next).setEnabled(step < closing);
  nav(finish).setEnabled(FinishOK);
}

// The keyboard goes where the step's work is.
void frmWizard::focusStep() {
  if (CurrentStep == folder) return steps_->PicBrouse->setFocus();
  nav(CurrentStep == closing ? finish : next).setFocus();
}

void frmWizard::showEvent(QShowEvent*) {
  if (!folderAtStart_) folderAtStart_ = services_.settings.find("Paths", "CCPath");
  timer1_.start();
}

void frmWizard::hideEvent(QHideEvent*) {
  timer1_.stop();
}

bool frmWizard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    const QSize inner = steps_->PicBrouse->size();
    chooser_.ResizeBrowseTree(0, 0, inner.width(), inner.height());
  }
  return QWidget::eventFilter(watched, event);
}

void frmWizard::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return onNav(help);
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return pressPrimary();
  QWidget::keyPressEvent(event);
}

// Enter presses the button that has the focus, else the one that leads on.
void frmWizard::pressPrimary() {
  for (QPushButton* button : cmdNav_) {
    if (button->hasFocus()) return button->click();
  }
  nav(CurrentStep == closing ? finish : next).click();
}

void frmWizard::cutSelectedFolder() {
  QString& folderText = chooser_.SelectedFolder;
  const qsizetype end = folderText.indexOf(QChar::Null);
  if (end >= 0) folderText.truncate(end);
}

void frmWizard::onTimer() {
  const WindowCalls::Running running(calls_);
  cutSelectedFolder();
  services_.yield.fullTurn();
  if (calls_.isClosed()) return;
  if (CurrentStep == folder) {
    nav(next).setEnabled(gameFolderCheck_.holdsGame(chooser_.SelectedFolder));
  }
  if (CurrentStep >= closing) nav(next).setEnabled(false);
}

// A button that was pressed by its shortcut clicks a moment later, even when it is disabled by then.
void frmWizard::onNav(Nav button) {
  if (!nav(button).isEnabled()) return;
  const WindowCalls::Running running(calls_);
  try {
    navigate(button);
  } catch (const DatabaseError& error) {
    endWith(FailureMessage(QString::fromUtf8(error.what()), error.number()));
  } catch (const std::exception& error) {
    endWith(FailureMessage(QString::fromUtf8(error.what()), 0));
  }
  if (CurrentStep >= closing) nav(next).setEnabled(false);
}

void frmWizard::navigate(Nav button) {
  switch (button) {
    case help:
      return showHelp();
    case cancel:
      return giveUp();
    case back:
      return SetStep(CurrentStep - 1, Direction::back);
    case next:
      return goOn();
    case finish:
      return finishUp();
  }
}

void frmWizard::showHelp() {
  services_.help.showTopic(1000 + 10 * (CurrentStep + 1));
}

void frmWizard::giveUp() {
  services_.settings.forgetGameFolder();
  Cancelled = true;
  chooser_.CloseBrowse();
  close();
  services_.process.end();
}

void frmWizard::goOn() {
  cutSelectedFolder();
  if (CurrentStep == folder && !gameFolderChosen()) return;
  services_.settings.saveGameFolder(chooser_.SelectedFolder);
  if (!chooser_.SelectedFolder.isEmpty()) StoreFirstTreeFont(services_.settings);
  SetStep(CurrentStep + 1, Direction::next);
  services_.yield.fullTurn();
  if (CurrentStep == restore && !calls_.isClosed()) restoreStockFiles();
}

bool frmWizard::gameFolderChosen() {
  if (HoldsGame(chooser_.SelectedFolder)) return true;
  services_.messages.show(
      {.text = "Invalid path, Try a differnet directory", .title = "Error", .icon = Message::Icon::critical},
      this);
  return false;
}

// In the middle of restoring, which Back and another Next can lead to, the rest of the files comes first.
void frmWizard::finishUp() {
  finishWanted_ = isRestoring();
  if (finishWanted_) return;
  Finished = true;
  chooser_.CloseBrowse();
  Q_EMIT finished();
  close();
}

void frmWizard::closeEvent(QCloseEvent*) {
  if (calls_.isClosed()) return;
  SavePlacement(services_.settings, *this);
  if (!Cancelled && !Finished) {
    putFolderBack();
    chooser_.CloseBrowse();
    services_.process.end();
  }
  calls_.close();
}

// Next stores the selected folder also where there is none yet.
void frmWizard::putFolderBack() {
  cutSelectedFolder();
  if (chooser_.SelectedFolder.isEmpty() && folderAtStart_) services_.settings.saveGameFolder(*folderAtStart_);
}

bool frmWizard::isRestoring() const {
  return CurrentStep == restore && !nav(next).isEnabled();
}

// Back, another Next and closing the window all happen in the middle of it: it then ends where it is.
void frmWizard::restoreStockFiles() {
  const int restoring = ++restorings_;
  const auto goesOn = [&] {
    return restoring == restorings_ && CurrentStep == restore && !calls_.isClosed();
  };
  finishWanted_ = false;
  nav(next).setEnabled(false);
  steps_->Report->clear();
  StockRestoration restoration(DB_->database(), services_.settings.gameFolder().toStdString());
  const std::vector<RestoredFile> files = restoreMissing(restoration, goesOn);
  if (!goesOn()) return;
  steps_->Report->show(files, restoration.archiveFailures());
  nav(next).setEnabled(true);
  nav(next).setFocus();
  steps_->Label1->setText("The Files Have Been Extracted, Click Next To Continue.");
  if (finishWanted_) return finishUp();
  offerAdministrator(files);
}

void frmWizard::offerAdministrator(const std::vector<RestoredFile>& files) {
  const QString folder = services_.settings.gameFolder() + '\\';
  const auto refused = std::ranges::find_if(files, [&](const RestoredFile& file) {
    return !file.reason.empty() &&
           services_.process.needsAdministrator(folder + QString::fromStdString(file.path));
  });
  if (refused == files.end()) return;
  const QString question =
      "Files of the game could not be written: \r\n" + QString::fromLocal8Bit(refused->reason.c_str());
  const int answer =
      services_.messages.ask({.text = question, .answers = {"Restart as administrator", "Continue"}}, this);
  if (answer == 0 && services_.process.startAnew(ProcessEnd::Rights::administrator)) services_.process.end();
}

std::vector<RestoredFile> frmWizard::restoreMissing(StockRestoration& restoration,
                                                    const std::function<bool()>& goesOn) {
  return restoration.restoreAll(services_.folders.program.toStdString(),
                                [&](std::int64_t done, std::int64_t all) {
                                  showProgress(static_cast<int>(done), static_cast<int>(all));
                                  services_.yield.fullTurn();
                                  return goesOn();
                                });
}

void frmWizard::showProgress(int done, int all) {
  QProgressBar& bar = *steps_->ProgressBar1;
  bar.setRange(1, all);
  bar.setValue(done);
  bar.setToolTip(QString("File %1 of %2").arg(done).arg(all));
  const auto percent = static_cast<int>(std::int64_t{100} * done / all);
  steps_->Label1->setText(QString("Extracting Files... (%1% Complete)").arg(percent));
}

void frmWizard::endWith(const Message& failure) {
  services_.messages.show(failure, this);
  close();
}

}  // namespace korvane
