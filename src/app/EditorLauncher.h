// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/TextEdit.h"

class QWidget;

namespace korvane {

struct ManualEditPlace;
struct ManualEditRequest;
struct NameHere;

// Each has a window of its own, with the list of the file's entries.
enum class TableEditorId { weapons, armours, commandSets, commandButtons };

// What all windows offer for the names of a game folder.
enum class SearchCommand {
  anything,
  definition,
  uses,
  namesUsed,
  files,
  problems,
  history,
  original,
  back,
  forward
};

// What the windows ask of each other. Every window is made at its first use and shown modeless.
class EditorLauncher {
 public:
  virtual ~EditorLauncher() = default;

  // The manual editor at a place of a file or of a part of one. An opening that fails says why and changes
  // nothing.
  virtual void showManualEditor(const ManualEditRequest& request) = 0;

  // Goes to the place when the manual editor has the whole file open already, unsaved text included.
  virtual bool goToInManualEditor(const QString& file, const ManualEditPlace& place) = 0;

  // Changes the whole file's text in the manual editor as the plan says, unsaved text included, as one step
  // to undo, and shows it with the first change selected. Nothing is saved. False when nothing was changed:
  // the opening failed, which has been told, or the plan names no change.
  virtual bool editInManualEditor(const QString& file, const EditPlan& plan) = 0;

  // The whole file's text as the manual editor has it, see EditPlan; nothing when the file is not open there.
  virtual std::optional<std::string> textInManualEditor(const QString& file) const = 0;

  // The same with all characters, in UTF-8.
  virtual std::optional<std::string> utf8InManualEditor(const QString& file) const = 0;
  // Changes the whole file's text in the manual editor as editInManualEditor does.
  virtual bool rewriteInManualEditor(const QString& file, const TextRewrite& rewrite) = 0;

  // How many objects name the item of this kind (in the file's bytes); waits for the names while they are
  // read for the first time. Nothing when they cannot be.
  virtual std::optional<std::size_t> objectsThatName(std::string_view kind, std::string_view name) = 0;

  virtual void showWeaponEditor() = 0;
  virtual void showArmourEditor() = 0;
  virtual void showCommandSetEditor() = 0;
  virtual void showCommandButtonEditor() = 0;

  // Selects the first entry of the editor's list, from the top, that begins with the name as a whole word,
  // letter case ignored; nothing is selected when there is none. An armour editor that is not loaded makes
  // the same choice when it is, which then shows the file as it is by then.
  virtual void selectWeapon(const QString& name) = 0;
  virtual void selectArmour(const QString& name) = 0;

  // The editor with the entry of this name, letter case ignored, as if it had been clicked. False, and
  // nothing happens, when its list has none.
  virtual bool showEntry(TableEditorId editor, const QString& name) = 0;

  // Carries out a command that a window was asked for.
  virtual void search(SearchCommand command, QWidget& window) = 0;
  // The window that shows what the name means best.
  virtual void showDefinition(const NameHere& name) = 0;
  // What the name means, where it is defined and how often it is used: for a tooltip. Empty as long as
  // nothing is known of it.
  virtual QString tellOfName(const NameHere& name) = 0;

  virtual void showOptions() = 0;
  virtual void showAbout() = 0;

  // Keeps the unsaved texts of the manual editor, if there are any: the program is about to end. False when
  // one cannot be kept and the user does not want to lose it.
  virtual bool keepUnsavedTexts() = 0;

  // The manual editor has text of the whole file that is not saved.
  virtual bool hasUnsavedText(const QString& file) const = 0;
  // See ConvertLineEnds.
  virtual QString convertLineEnds(const QString& path) = 0;

  // Destroys the embedded folder chooser, if there is one.
  virtual void CloseBrowse() = 0;
};

}  // namespace korvane
