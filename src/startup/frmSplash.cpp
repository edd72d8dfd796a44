// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/frmSplash.h"

#include <QCloseEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <chrono>

#include "catalogue/ObjectTreeBuilder.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "controls/ShownText.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "mainwindow/FrmEdit.h"
#include "platform/EventYield.h"
#include "platform/MessageBoxes.h"
#include "platform/NativeText.h"
#include "platform/Programs.h"
#include "platform/SupportAddress.h"
#include "platform/Version.h"
#include "settings/SettingsStore.h"
#include "startup/MissingGameFiles.h"
#include "startup/StartupWindows.h"

namespace korvane {

namespace {

constexpr int kMissingFilesTopic = 62;
constexpr auto kAnimationInterval = std::chrono::milliseconds(500);
constexpr std::array kLoadingTexts = {"Loading.", "Loading..", "Loading...", "Loading...."};
constexpr int kBarPerPercent = 10;  // eight files are steps of 12.5 %
constexpr int kPictureSize = 112;   // device-independent pixels
constexpr int kWidth = 460;

bool Exists(const QString& path) {
  return FileExists(ProgramPath(path.toStdString()));
}

QLabel* TitleLabel() {
  auto* title = new QLabel(ApplicationTitle());
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.4);
  large.setBold(true);
  title->setFont(large);
  title->setWordWrap(true);
  return title;
}

}  // namespace

frmSplash::frmSplash(const Services& services, Folders& folders, StartupWindows& windows, QString arguments)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      services_(services),
      folders_(folders),
      windows_(windows),
      arguments_(std::move(arguments)),
      Label1_(Named("Label1", new QLabel("Loading..."))),
      lblVersion_(Named("lblVersion", new QLabel("Version 0.5"))),
      ProgressBar1_(Named("ProgressBar1", new QProgressBar)) {
  setObjectName("frmSplash");
  setWindowTitle(ApplicationTitle());
  buildWindow();
  Timer1_.setObjectName("Timer1");
  connect(&Timer1_, &QTimer::timeout, this, &frmSplash::animate);
}

void frmSplash::buildWindow() {
  auto* picture = Named("Image1", new QLabel);
  picture->setPixmap(ApplicationIcon().pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatioF()));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(6);
  texts->addStretch(1);
  texts->addWidget(TitleLabel());
  texts->addWidget(lblVersion_);
  texts->addWidget(Named("lblPlatform", new QLabel("Win 9X / XP")));
  texts->addStretch(1);
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addLayout(texts, 1);
  ProgressBar1_->setRange(0, 100 * kBarPerPercent);
  ProgressBar1_->setTextVisible(false);
  ProgressBar1_->setAccessibleName("Loading");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 20);
  layout->setSpacing(12);
  layout->addLayout(top);
  layout->addWidget(ProgressBar1_);
  layout->addWidget(Label1_);
  setFixedWidth(kWidth);
}

void frmSplash::animate() {
  if (animationState_ < 1 || animationState_ > static_cast<int>(kLoadingTexts.size())) return;
  Label1_->setText(kLoadingTexts[static_cast<std::size_t>(animationState_) - 1]);
  animationState_ = animationState_ % static_cast<int>(kLoadingTexts.size()) + 1;
}

void frmSplash::load() {
  folders_.game = services_.settings.gameFolder();
  windows_.mainWindow();
  adjustSize();
  move(screen()->availableGeometry().center() - rect().center());
  show();
  Timer1_.start(kAnimationInterval);
  services_.settings.save("TVPos", "Pos", "1");
  services_.yield.fullTurn();
  lblVersion_->setText(QString("Version %1.%2").arg(kMajorVersion).arg(kMinorVersion));
  animationState_ = 1;
  IdentifyFixProblems();
  if (ended_) return;
  if (arguments_.compare("-Reinstall", Qt::CaseInsensitive) == 0 && !windows_.wizardVisible()) {
    showWizardAndClose();
    return;
  }
  if (windows_.wizardVisible()) windows_.hideWizard();
  services_.yield.fullTurn();
  if (ended_) return;
  if (INIExist() && services_.settings.gameFolderStored()) {
    openEditor();
  } else {
    showWizardAndClose();
  }
}

void frmSplash::IdentifyFixProblems() {
  if (removeManifest() || tellMissingStockData()) {
    endProgram();
    return;
  }
  if (INIExist()) return;
  services_.messages.show({.text = iniFolder() + " does not exist, " + kCrLf + ApplicationTitle() +
                                   " will now run the setup wizard."},
                          this);
  showWizardAndClose();
}

bool frmSplash::removeManifest() {
  const QString manifest = services_.folders.program + "\\Korvane.exe.manifest";
  if (!Exists(manifest)) return false;
  QFile::remove(NativeText(ProgramPath(manifest.toStdString())));
  services_.messages.show(
      {.text = manifest + " has been detected," + kCrLf + "This file will be deleted, Click OK and Run " +
               ApplicationTitle() + " again."},
      this);
  return true;
}

bool frmSplash::tellMissingStockData() {
  const QString missing = MissingFiles();
  if (missing.isEmpty()) return false;
  services_.messages.show({.text = "The following files are missing:" + kCrLf + missing + kCrLf +
                                   "Please re-install " + ApplicationTitle() + " or send a E-mail to " +
                                   SupportAddress() + " to get a download link to the files.",
                           .title = "Error",
                           .icon = Message::Icon::critical,
                           .helpTopic = kMissingFilesTopic,
                           .systemModal = true},
                          this);
  return true;
}

QString frmSplash::MissingFiles() const {
  QString missing;
  for (const char* name : {"\\Data.DBF", "\\Data.DBT"}) {
    const QString path = services_.folders.program + name;
    if (!Exists(path)) missing += path + kCrLf;
  }
  return missing;
}

QString frmSplash::iniFolder() const {
  return services_.folders.game + QString::fromUtf8(kIniFolder).chopped(1);
}

bool frmSplash::INIExist() const {
  return FolderExists(ProgramPath(iniFolder().toStdString()));
}

void frmSplash::openEditor() {
  BuildObjectTree();
  if (ended_) return;
  windows_.CloseBrowse();
  FrmEdit& editor = windows_.mainWindow();
  editor.show();
  services_.yield.fullTurn();
  editor.prepareInformationList();
  editor.readWeapons();
  editor.tell(missingFileNotices, MissingGameFiles(services_.folders.game.toStdString()));
  editor.tellLineEnds(filesWithUnixLineEnds());
  close();
  editor.restoreLastView();
}

void frmSplash::BuildObjectTree() {
  folders_.game = services_.settings.gameFolder();
  ObjectTreeModel& objects = windows_.mainWindow().objects();
  ObjectTreeBuilder builder([&objects](const TreeEntry& entry) { return objects.addNode(entry); },
                            [this] { services_.yield.perLine(); });
  builder.BuildObjectTree(
      services_.folders.game.toStdString(),
      [this](double percent) { ProgressBar1_->setValue(static_cast<int>(percent * kBarPerPercent)); },
      [this] { services_.yield.fullTurn(); });
  otherUnixFiles_ = builder.otherUnixFiles();
}

std::vector<UnixFile> frmSplash::filesWithUnixLineEnds() const {
  std::vector<UnixFile> files = DataFilesWithUnixLineEnds(services_.folders.game.toStdString());
  for (const UnixFile& other : otherUnixFiles_) {
    if (std::ranges::find(files, other.path, &UnixFile::path) == files.end()) files.push_back(other);
  }
  return files;
}

void frmSplash::showWizardAndClose() {
  windows_.showWizard();
  close();
}

void frmSplash::endProgram() {
  ended_ = true;
  windows_.CloseBrowse();
  close();
  services_.process.end();
}

void frmSplash::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) endProgram();
}

// Closed by the desktop in the middle of loading: as with Escape.
void frmSplash::closeEvent(QCloseEvent* event) {
  Timer1_.stop();
  if (event->spontaneous() && !ended_) endProgram();
}

}  // namespace korvane
