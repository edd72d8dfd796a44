// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/FrmCmdSet.h"

#include <QMenuBar>

#include <array>
#include <charconv>

#include "ini/Blocks.h"
#include "ini/IniText.h"
#include "ini/ParameterRows.h"
#include "platform/DesktopShell.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::string_view kButton = "CommandButton";
constexpr std::array<MenuRow, 3> kHelpMenu = {
    {{0, "MnuHelpi", "&Help"}, {1, "MnuHelp"}, {1, "MnuCmdFormat"}}};

// All that follows the last kind word of the line, a comment included.
std::string_view ButtonName(std::string_view line) {
  return TrimSpaces(line.substr(line.rfind(kButton) + kButton.size()));
}

// A slot behind the last one that the table shows.
struct HiddenSlot {
  QString caption;
  std::size_t line;
};

// The number of such a slot in its line, else 0.
int HiddenSlotNumber(std::string_view line) {
  line = TrimSpaces(line);
  int number = 0;
  const auto [behind, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  const bool isKey = error == std::errc() && behind != line.data() + line.size() &&
                     std::string_view(" \t=").find(*behind) != std::string_view::npos;
  return isKey && number > kCommandSetSlots ? number : 0;
}

}  // namespace

FrmCmdSet::FrmCmdSet(const TableEditorContext& context) : TableEditor(kCommandSetEditor, context) {
  commands().add("MnuHelp", "&Help", {}, [this] { showHelp(); });
  commands().add("MnuCmdFormat", "&Show Command Set Format", {}, [this] { Q_EMIT formatAsked(); });
  FillMenuBar(*menuBar(), commands(), kHelpMenu);
}

std::vector<Notice> FrmCmdSet::noticesOf(const std::string& text, const ShownBlock& block,
                                         const QString& file) const {
  std::vector<HiddenSlot> hidden;
  std::size_t line = block.line;
  ForEachLine(text, [&](std::string_view each) {
    if (const int number = HiddenSlotNumber(each); number != 0)
      hidden.push_back({QStringLiteral("%1 ").arg(number) + FromBytes(ExtractValue(each)), line});
    ++line;
  });
  if (hidden.empty()) return {};
  Notice notice(hidden.size() == 1 ? "Slot " : "Slots ");
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    if (i > 0) notice.say(i + 1 == hidden.size() ? " and " : ", ");
    AddLine(notice, hidden[i].caption, file, hidden[i].line, context().launcher);
  }
  notice.say(hidden.size() == 1 ? " is not shown in this table." : " are not shown in this table.");
  return {notice};
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
  // A comma in a name parts it in two.
  const auto add = [&](std::string_view name) { names->emplace_back(name); };
  TVItem reader(context().parser.yield());
  ReadHeaders(reader, IniPath(context().parser.gameFolder(), kCommandButtonFile), kButton,
              [&](const HeaderLine& header) { ForEachPiece(ButtonName(header.line), ",", add); });
  if (names->size() == 1 && names->front().empty()) names->clear();
  return names;
}

}  // namespace korvane
