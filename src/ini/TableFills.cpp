// SPDX-License-Identifier: GPL-3.0-or-later
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "ini/BlockParts.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"
#include "ini/ParameterRows.h"
#include "ini/SParse.h"

namespace korvane {

namespace {

// One row of the table for each parameter; `lookUp` gives the value of a key, or nothing.
template <typename LookUp>
void FillRows(std::span<const ParameterRow> rows, TableSink& table, LookUp&& lookUp) {
  table.clearRows();
  for (const ParameterRow& row : rows) {
    table.addCell(row.caption, 0);
    if (row.key.empty()) {
      table.addCell(kSeparatorValue, 1);
    } else if (const std::optional<std::string> value = lookUp(row.key)) {
      table.addCell(*value, 1, row.kind);
    }
    if (row.choices != nullptr) table.addChoices(row.choices());
  }
}

// The first word of what stands between the first "=" of the line and the next; words are separated by
// spaces.
std::string_view DamageType(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  line.remove_prefix(equals + 1);
  line = TrimSpaces(line.substr(0, line.find('=')));
  return line.substr(0, line.find(' '));
}

}  // namespace

std::string SParse::GetWeaponData(std::string_view selected, TableSink& table) {
  ObjectName = selected;
  std::string text;  // an entry without a name has no block
  if (!selected.empty()) text = GetObjectText("Weapon", kWeaponFile);
  text += kLineEnd;
  FillRows(kWeaponRows, table, [&](std::string_view key) { return GetWeaponValue(key, text); });
  return text;
}

std::string SParse::GetCmdBtnData(std::string_view selected, TableSink& table) {
  ObjectName = selected;
  std::string text = GetObjectText("CommandButton", kCommandButtonFile).append(kLineEnd);
  FillRows(kCommandButtonRows, table, [&](std::string_view key) { return GetCommandButtonValue(key, text); });
  return text;
}

std::string SParse::GetCmdSetData(std::string_view selected, TableSink& table) {
  ObjectName = selected;
  std::string text = GetObjectText("CommandSet", kCommandSetFile).append(kLineEnd);
  table.clearRows();
  table.prepare();
  for (int slot = 1; slot <= kCommandSetSlots; ++slot) {
    table.addCell(std::to_string(slot), 0);
    if (const auto values = GetCommandSetValue(slot, text))
      table.addCell(std::string_view(*values).substr(0, values->find(kLineEnd)), 1, EditKind::choice);
    table.addChoices(ButtonNames);
    if (yield_) yield_();
  }
  return text;
}

std::string SParse::GetArmourData(std::string_view selected, TableSink& table) {
  ObjectName = selected;
  std::string text = GetObjectText("Armor", kArmorFile).append(kLineEnd);
  SParseArmourText(text, table);
  return text;
}

void SParse::SParseArmourText(std::string_view StrText, TableSink& table) {
  const std::string text = RemVBCrLf(StrText);
  table.clearRows();
  for (const std::string_view line : ArmourLinesOf(text)) {
    SParseArmourLine(std::string(line));
    table.addCell(damageType_, 0);
    table.addCell(percentage_, 1, EditKind::typed);
  }
}

void SParse::SParseArmourLine(std::string StrLine) {
  ArmourLine line = ArmourLineOf(std::move(StrLine));
  damageType_ = std::move(line.damageType);
  percentage_ = std::move(line.percentage);
}

std::vector<std::string_view> ArmourLinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  ForEachPiece(text, kLineEnd, [&lines](std::string_view line) {
    if (!TrimSpaces(line).empty()) lines.push_back(line);
  });
  if (lines.size() < 2) return {};
  return {lines.begin() + 1, lines.end() - 1};
}

ArmourLine ArmourLineOf(std::string line) {
  std::string type(DamageType(line));
  if (line.find(';') == std::string::npos) line += " ;A Comment";
  const std::vector<std::string_view> pieces = Split(line, ";");
  const std::string_view piece = pieces[pieces.size() - 2];
  std::string percentage(piece.substr(0, piece.find('%')));
  percentage += '%';
  percentage.erase(0, percentage.rfind(' ') + 1);  // without a space nothing
  return {std::move(type), std::move(percentage)};
}

}  // namespace korvane
