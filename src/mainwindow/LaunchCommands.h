// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <string>

#include "app/ManualEditRequest.h"
#include "app/Services.h"
#include "ini/SParse.h"

class QWidget;

namespace korvane {

class EditorLauncher;

// What the menus, the toolbar and the buttons of the main window start.
class LaunchCommands {
 public:
  // `selected` gives the tree's selected object.
  LaunchCommands(QWidget& window, SParse& parser, const Services& services, EditorLauncher& launcher,
                 std::function<SelectedObject()> selected);

  void runGame();
  void showOptions();
  void showWeaponEditor();
  void showArmourEditor();
  void showCommandSetEditor();
  void showCommandButtonEditor();
  void findAnything();
  void goToDefinition();
  void findUses();
  void listNamesUsed();
  void findInFiles();
  void checkData();
  void showHistory();
  void compareWithOriginal();
  void goBack();
  void goForward();
  void showHelp();
  void showHelpContents();
  void openGameFolder();
  void openKorvaneFolder();
  void openMakersPage();
  void openDevelopmentPage();
  void showAbout();
  void tellAboutArrow();

  // Open a whole file of "\Data\INI\" or of "\Data\INI\Object\" in the manual editor, or say that it does not
  // exist.
  void SF(const QString& filename) { openFile(DataFolder::ini, filename); }
  void LF(const QString& filename) { openFile(DataFolder::objects, filename); }
  // A data file by its name in any letter case; an unknown name does nothing.
  void openDataFile(const QString& filename);

  // The three buttons for manual editing of the selected object. Nothing happens without one.
  void editObjectFile();
  void editLocomotors();
  void editObjectBlock();
  // The selected object's whole file, at the object.
  void editObjectInFile();

  // Shows the editor with the entry of the name selected.
  void showArmour(const QString& name);
  void showWeapon(const QString& name);

 private:
  void openFile(DataFolder folder, const QString& filename, const ManualEditPlace& place = {});
  void editPart(DataFolder folder, const QString& filename, const std::function<std::string()>& readText);

  QWidget& window_;
  SParse& parser_;
  const Services& services_;
  EditorLauncher& launcher_;
  std::function<SelectedObject()> selected_;
};

}  // namespace korvane
