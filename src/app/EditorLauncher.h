// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

struct ManualEditRequest;

// What the windows ask of each other. Every window is made at its first use and shown modeless.
class EditorLauncher {
 public:
  virtual ~EditorLauncher() = default;

  // The manual editor at a place of a file or of a part of one. An opening that fails says why and changes
  // nothing.
  virtual void showManualEditor(const ManualEditRequest& request) = 0;

  virtual void showWeaponEditor() = 0;
  virtual void showArmourEditor() = 0;
  virtual void showCommandSetEditor() = 0;
  virtual void showCommandButtonEditor() = 0;

  // Selects the first entry of the editor's list, from the top, that begins with the name as a whole word,
  // letter case ignored; nothing is selected when there is none. An armour editor that is not loaded makes
  // the same choice when it is, which then shows the file as it is by then.
  virtual void selectWeapon(const QString& name) = 0;
  virtual void selectArmour(const QString& name) = 0;

  virtual void showOptions() = 0;
  virtual void showAbout() = 0;

  // Keeps the unsaved text of the manual editor, if there is any: the program is about to end. False when it
  // cannot be kept and the user does not want to lose it.
  virtual bool keepUnsavedTexts() = 0;

  // The program's path of the file whose text in the manual editor is not saved; empty when there is none.
  virtual QString fileWithUnsavedText() const = 0;
  // See ConvertLineEnds.
  virtual QString convertLineEnds(const QString& path) = 0;

  // Destroys the embedded folder chooser, if there is one.
  virtual void CloseBrowse() = 0;
};

}  // namespace korvane
