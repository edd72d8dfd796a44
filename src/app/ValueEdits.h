// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <span>
#include <vector>

#include "controls/NoticeBar.h"
#include "edit/Fields.h"

namespace korvane {

class EditorLauncher;
class MessageBoxes;

// A value that a window shows, and where it comes from.
struct ShownField {
  QString file;  // the program's path
  BlockName block;
  std::optional<Field> field{};  // none: the block itself
};

struct TypedValue {
  QString caption;  // of the field, for the user
  ShownField shown;
  QString value;    // as it is to stand in the file
  QString fault{};  // why it cannot stand there, as a clause; empty: the file decides
};

// The whole file in the manual editor at the value's line, the value selected; the block's header where the
// block has no such line. Unsaved text is left as it is.
void ShowInFile(const ShownField& shown, EditorLauncher& launcher);

// For each value, whether its file on the disk has come to show just that.
std::vector<bool> ShownByFile(std::span<const TypedValue> values);

// Makes one unsaved change of the file's text in the manual editor out of values of one block, and shows it.
// What is to be said where that is refused, with links to the lines; nothing is changed then. `owner`: the
// window whose question it is when other objects name the block too.
std::vector<Notice> EditInFile(std::span<const TypedValue> values, EditorLauncher& launcher,
                               MessageBoxes& messages, QWidget& owner);

}  // namespace korvane
