// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/FrmCmdSet.h"

#include <QMenu>
#include <QMenuBar>

#include "ini/IniText.h"
#include "platform/DesktopShell.h"

namespace korvane {

namespace {

constexpr std::string_view kButton = "CommandButton";

// All that follows the last kind word of the line, a comment included.
std::string_view ButtonName(std::string_view line) {
  return TrimSpaces(line.substr(line.rfind(kButton) + kButton.size()));
}

}  // namespace

FrmCmdSet::FrmCmdSet(const TableEditorContext& context) : TableEditor(kCommandSetEditor, context) {
  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("MnuHelpi");
  help->addAction("&Help", this, &FrmCmdSet::showHelp)->setObjectName("MnuHelp");
  help->addAction("&Show Command Set Format", this, &FrmCmdSet::formatAsked)->setObjectName("MnuCmdFormat");
}

void FrmCmdSet::showHelp() {
  const Services& services = context().services;
  services.shell.RunFile(services.folders.helpFile(), services.folders.program);
}

QStringList FrmCmdSet::readNames() {
  context().parser.ButtonNames = readButtonNames();
  return TableEditor::readNames();
}

ChoiceList FrmCmdSet::readButtonNames() const {
  auto names = std::make_shared<std::vector<std::string>>();
  std::string collected;
  const Yield& yield = context().parser.yield();
  TVItem reader(yield);
  reader.NewLine = [&](std::string_view line) {
    if (yield) yield();
    if (TVItem::CheckText(line, kButton)) collected.append(ButtonName(line)).append(",");
  };
  reader.OpenFile(IniPath(context().parser.gameFolder(), kCommandButtonFile));
  if (!collected.empty()) collected.pop_back();
  // A comma in a name parts it in two.
  if (!collected.empty())
    ForEachPiece(collected, ",", [&](std::string_view name) { names->emplace_back(name); });
  return names;
}

}  // namespace korvane
