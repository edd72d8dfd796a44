// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/LaunchCommands.h"

#include <QWidget>

#include "app/BlockNotices.h"
#include "app/EditorLauncher.h"
#include "controls/ShownText.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "platform/DesktopShell.h"
#include "platform/HelpViewer.h"
#include "platform/MessageBoxes.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

const QString kMakersPage = QStringLiteral("https://ferncastle.example/");
const QString kDevelopmentPage = QStringLiteral("https://ferncastle.example/korvane/development");

}  // namespace

LaunchCommands::LaunchCommands(QWidget& window, SParse& parser, const Services& services,
                               EditorLauncher& launcher, std::function<SelectedObject()> selected)
    : window_(window),
      parser_(parser),
      services_(services),
      launcher_(launcher),
      selected_(std::move(selected)) {}

void LaunchCommands::runGame() {
  services_.shell.RunFile(services_.folders.game + u'\\' + QString::fromUtf8(kGameProgram),
                          services_.folders.game);
}

void LaunchCommands::showOptions() {
  launcher_.showOptions();
}
void LaunchCommands::showWeaponEditor() {
  launcher_.showWeaponEditor();
}
void LaunchCommands::showArmourEditor() {
  launcher_.showArmourEditor();
}
void LaunchCommands::showCommandSetEditor() {
  launcher_.showCommandSetEditor();
}
void LaunchCommands::showCommandButtonEditor() {
  launcher_.showCommandButtonEditor();
}
void LaunchCommands::showAbout() {
  launcher_.showAbout();
}

void LaunchCommands::findAnything() {
  launcher_.search(SearchCommand::anything, window_);
}
void LaunchCommands::goToDefinition() {
  launcher_.search(SearchCommand::definition, window_);
}
void LaunchCommands::findUses() {
  launcher_.search(SearchCommand::uses, window_);
}
void LaunchCommands::listNamesUsed() {
  launcher_.search(SearchCommand::namesUsed, window_);
}
void LaunchCommands::findInFiles() {
  launcher_.search(SearchCommand::files, window_);
}
void LaunchCommands::checkData() {
  launcher_.search(SearchCommand::problems, window_);
}
void LaunchCommands::showHistory() {
  launcher_.search(SearchCommand::history, window_);
}
void LaunchCommands::compareWithOriginal() {
  launcher_.search(SearchCommand::original, window_);
}
void LaunchCommands::goBack() {
  launcher_.search(SearchCommand::back, window_);
}
void LaunchCommands::goForward() {
  launcher_.search(SearchCommand::forward, window_);
}

void LaunchCommands::showHelp() {
  services_.shell.RunFile(services_.folders.helpFile(), services_.folders.program);
}

void LaunchCommands::showHelpContents() {
  services_.help.showContents();
}

void LaunchCommands::openGameFolder() {
  services_.shell.RunFile(services_.folders.game, services_.folders.game);
}

void LaunchCommands::openKorvaneFolder() {
  services_.shell.RunFile(services_.folders.program, services_.folders.program);
}

void LaunchCommands::openMakersPage() {
  services_.shell.RunFile(kMakersPage, kMakersPage);
}
void LaunchCommands::openDevelopmentPage() {
  services_.shell.RunFile(kDevelopmentPage, kDevelopmentPage);
}

void LaunchCommands::tellAboutArrow() {
  services_.messages.show({.text = "Click on the 'Down Arrow' next to this button!",
                           .title = "For your information,",
                           .icon = Message::Icon::information},
                          &window_);
}

void LaunchCommands::openDataFile(const QString& filename) {
  for (const DataFile& file : kDataFiles) {
    if (filename.compare(QString::fromUtf8(file.name), Qt::CaseInsensitive) != 0) continue;
    openFile(file.folder == kObjectFolder ? DataFolder::objects : DataFolder::ini, filename);
    return;
  }
}

void LaunchCommands::openFile(DataFolder folder, const QString& filename, const ManualEditPlace& place) {
  const QString wanted = DataFilePath(services_.folders, folder, filename);
  if (!FileExists(ProgramPath(wanted.toStdString()))) {
    services_.messages.show({.text = "The following files do not exist: " + kCrLf + wanted}, &window_);
    return;
  }
  ManualEditRequest request;
  SetManualEditFile(request, services_.folders, 0, folder, filename);
  request.place = place;
  launcher_.showManualEditor(request);
}

void LaunchCommands::editObjectFile() {
  const SelectedObject object = selected_();
  if (!object.name.empty()) SF(QString::fromStdString(object.file));
}

void LaunchCommands::editPart(DataFolder folder, const QString& filename,
                              const std::function<std::string()>& readText) {
  ManualEditRequest request;
  SetManualEditFile(request, services_.folders, 1, folder, filename);
  {
    const ParserTurn turn(parser_);
    if (!turn) return;
    request.text = readText();
  }
  launcher_.showManualEditor(request);
  window_.unsetCursor();
}

void LaunchCommands::editLocomotors() {
  const SelectedObject object = selected_();
  if (object.name.empty()) return;
  editPart(DataFolder::ini, QString::fromUtf8(kLocomotorFile), [&] { return parser_.GetLocomotors(object); });
}

void LaunchCommands::editObjectBlock() {
  const SelectedObject object = selected_();
  if (object.name.empty()) return;
  editPart(DataFolder::ini, QString::fromStdString(object.file), [&] {
    parser_.ObjectName = object.name;
    return parser_.GetObjectText("Object", object.file);
  });
}

void LaunchCommands::editObjectInFile() {
  const SelectedObject object = selected_();
  const QString file = QString::fromStdString(object.file);
  const LookedFor sought{DataFilePath(services_.folders, DataFolder::ini, file), "Object",
                         FromBytes(object.name)};
  const ShownBlock block = ReadShownBlock(sought).value_or(ShownBlock{});
  openFile(DataFolder::ini, file, {static_cast<int>(block.ownLine != 0 ? block.ownLine : block.line)});
}

void LaunchCommands::showArmour(const QString& name) {
  launcher_.selectArmour(name);
  launcher_.showArmourEditor();
}

void LaunchCommands::showWeapon(const QString& name) {
  launcher_.selectWeapon(name);
  launcher_.showWeaponEditor();
}

}  // namespace korvane
