// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/LaunchCommands.h"

#include <QWidget>

#include "app/EditorLauncher.h"
#include "app/ManualEditTarget.h"
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
                               EditorLauncher& launcher, ManualEditTarget& target,
                               std::function<SelectedObject()> selected)
    : window_(window),
      parser_(parser),
      services_(services),
      launcher_(launcher),
      target_(target),
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
    openFile(file.folder == kObjectFolder ? objects : ini, filename);
    return;
  }
}

QString LaunchCommands::path(Folder folder, const QString& filename) const {
  return services_.folders.game + QString::fromUtf8(folder == ini ? kIniFolder : kObjectFolder) + filename;
}

void LaunchCommands::SetManualEditFile(int partial, Folder folder, const QString& filename) {
  target_.ManualEditPartial = partial;
  target_.ManualEditFile = path(folder, filename);
}

void LaunchCommands::openFile(Folder folder, const QString& filename) {
  const QString wanted = path(folder, filename);
  if (!FileExists(wanted.toStdString())) {
    services_.messages.show({.text = "The following files do not exist: " + kCrLf + wanted}, &window_);
    return;
  }
  SetManualEditFile(0, folder, filename);
  target_.ManEditInitDone = false;
  launcher_.showManualEditorOnFile();
}

void LaunchCommands::editObjectFile() {
  const SelectedObject object = selected_();
  if (!object.name.empty()) LF(FromBytes(object.file));
}

// The read lets events run, in which another file can be opened: only after it the target is this text's.
void LaunchCommands::editPart(Folder folder, const QString& filename,
                              const std::function<std::string()>& readText) {
  std::string text;
  {
    const ParserTurn turn(parser_);
    if (!turn) return;
    text = readText();
  }
  SetManualEditFile(1, folder, filename);
  target_.ManEditInitDone = false;
  launcher_.showManualEditorOnText(text);
  window_.unsetCursor();
}

void LaunchCommands::editLocomotors() {
  const SelectedObject object = selected_();
  if (object.name.empty()) return;
  editPart(ini, QString::fromUtf8(kLocomotorFile), [&] { return parser_.GetLocomotors(object); });
}

void LaunchCommands::editObjectBlock() {
  const SelectedObject object = selected_();
  if (object.name.empty()) return;
  editPart(objects, FromBytes(object.file), [&] {
    parser_.ObjectName = object.name;
    return parser_.GetObjectText("Object", "Object\\" + object.file);
  });
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
