// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "ini/DataFiles.h"
#include "ini/SParse.h"

namespace korvane {

struct TableColumn {
  const char* caption;
  int width;  // twips
};

// What makes one table editor differ from the others.
struct TableEditorEntry {
  const char* window;
  const char* title;
  const char* manualEditCaption;
  std::string_view kind;  // of the blocks in the file
  std::string_view file;
  std::array<TableColumn, 2> columns;
  bool sorted;
  bool yieldsPerLine;  // while the file is scanned for its entries
  bool trimsBlock;     // of spaces at both ends, on its way to the manual editor
  bool needsName;  // for the manual editor; else an entry without a name stands for the file's first block
  const char* soughtNoun;  // of an entry in what is said about one that was asked for; null: nothing is said
  std::string (SParse::*fill)(std::string_view selected, TableSink& table);
};

inline constexpr TableEditorEntry kWeaponEditor{
    .window = "FrmWE",
    .title = "Weapon Editor",
    .manualEditCaption = "Edit &Weapon in Manual Editor",
    .kind = "Weapon",
    .file = kWeaponFile,
    .columns = {{{"Name", 4440}, {"Value", 5440}}},
    .sorted = true,
    .yieldsPerLine = false,
    .trimsBlock = false,
    .needsName = true,
    .soughtNoun = "weapon",
    .fill = &SParse::GetWeaponData,
};

inline constexpr TableEditorEntry kArmourEditor{
    .window = "FrmArmour",
    .title = "Armour Editor",
    .manualEditCaption = "Edit &Armour in Manual Editor",
    .kind = "Armor",
    .file = kArmorFile,
    .columns = {{{"Name", 3440}, {"Value", 2440}}},
    .sorted = true,
    .yieldsPerLine = true,
    .trimsBlock = false,
    .needsName = false,
    .soughtNoun = nullptr,
    .fill = &SParse::GetArmourData,
};

inline constexpr TableEditorEntry kCommandSetEditor{
    .window = "FrmCmdSet",
    .title = "Command Set Editor",
    .manualEditCaption = "Edit &Command Set in Manual Editor",
    .kind = "CommandSet",
    .file = kCommandSetFile,
    .columns = {{{"No.", 750}, {"Name", 6440}}},
    .sorted = false,
    .yieldsPerLine = false,
    .trimsBlock = true,
    .needsName = false,
    .soughtNoun = nullptr,
    .fill = &SParse::GetCmdSetData,
};

inline constexpr TableEditorEntry kCommandButtonEditor{
    .window = "FrmCmdBtn",
    .title = "Command Button Editor",
    .manualEditCaption = "Edit &Command Button in Manual Editor",
    .kind = "CommandButton",
    .file = kCommandButtonFile,
    .columns = {{{"Name", 4440}, {"Value", 6440}}},
    .sorted = true,
    .yieldsPerLine = true,
    .trimsBlock = false,
    .needsName = false,
    .soughtNoun = nullptr,
    .fill = &SParse::GetCmdBtnData,
};

}  // namespace korvane
