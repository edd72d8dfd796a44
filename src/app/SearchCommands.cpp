// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SearchCommands.h"

#include <array>

#include "app/Commands.h"

namespace korvane {

namespace {

struct Row {
  SearchCommand command;
  const char* name;
  const char* caption;
  const char* shortcut;
};
constexpr std::array kRows = {
    Row{SearchCommand::anything, "findAnything", "Find &Anything", "Ctrl+P"},
    Row{SearchCommand::definition, "goToDefinition", "Go to &Definition", "F4"},
    Row{SearchCommand::uses, "findUses", "Find &Uses", "Shift+F4"},
    Row{SearchCommand::namesUsed, "namesUsed", "&Names Used by This Block", ""},
    Row{SearchCommand::files, "findInFiles", "Find &in Files...", "Ctrl+Shift+F"},
    Row{SearchCommand::problems, "checkData", "&Check the Data", "Ctrl+Shift+M"},
    Row{SearchCommand::history, "showHistory", "&History...", ""},
    Row{SearchCommand::original, "compareOriginal", "Compare with the Ori&ginal...", ""},
    Row{SearchCommand::back, "goBack", "Bac&k", "Alt+Left"},
    Row{SearchCommand::forward, "goForward", "F&orward", "Alt+Right"},
};

}  // namespace

void AddSearchCommands(Commands& commands, const std::function<void(SearchCommand)>& carryOut) {
  for (const Row& row : kRows) {
    commands.add(row.name, row.caption, row.shortcut,
                 [carryOut, command = row.command] { carryOut(command); });
  }
}

}  // namespace korvane
