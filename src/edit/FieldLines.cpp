// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/FieldLines.h"

#include <algorithm>

#include "edit/LineWords.h"
#include "ini/BlockParts.h"
#include "ini/DisplayGrammar.h"
#include "ini/IniText.h"
#include "ini/SParse.h"

namespace korvane {

namespace {

constexpr std::string_view kLocomotor = "Locomotor";
constexpr std::string_view kWeapon = "Weapon";
constexpr std::string_view kConditions = "Conditions";
constexpr std::string_view kArmor = "Armor";
constexpr std::size_t kLabels = 1;  // a slot of a weapon set, a set of locomotors

constexpr std::string_view kOtherSets = "the weapon sets are not those that are shown";

std::string Prefix(const KeyField& field) {
  return std::string(field.key).append(field.spaceFollows ? " " : "");
}

std::vector<std::size_t> LinesWith(const BlockText& block, std::string_view prefix) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    if (TrimSpaces(block.lines[i].text).starts_with(prefix)) found.push_back(i);
  }
  return found;
}

FieldLine Refused(std::string reason, int line) {
  return {.refusal = {std::move(reason), line}};
}

// The value in a line that should have the key.
FieldLine WordIn(const BlockText& block, std::size_t index, std::string_view key, std::size_t labels) {
  const BlockLine& line = block.lines[index];
  const ShownWord word = ShownValueWord(line.text, labels);
  FieldLine found{index, word.at, word.length, {}};
  const std::string_view ownKey = KeyWord(line.text);
  if (ownKey != key) {
    found.refusal.reason = "it shows the key '" + std::string(ownKey) + "'";
  } else if (!block.inner.empty() && line.number > block.inner.front().lastLine) {
    found.refusal.reason = "its line belongs to what follows the block";
  } else {
    found.refusal.reason = word.problem;
  }
  if (found.refusal) found.refusal.line = line.number;
  return found;
}

FieldLine Find(const BlockText& block, const KeyField& field) {
  const std::vector<std::size_t> lines = LinesWith(block, Prefix(field));
  if (lines.empty()) return {};
  FieldLine found = WordIn(block, lines.front(), field.key, 0);
  if (lines.size() == 1 || field.firstOnly) return found;
  found.refusal = {"it shows " + std::to_string(lines.size()) + " lines run together",
                   block.lines[lines.front()].number};
  return found;
}

FieldLine Find(const BlockText& block, const LocomotorField& field) {
  const std::vector<std::size_t> lines = LinesWith(block, kLocomotor);
  if (lines.size() != field.count)
    return Refused("the lines that name locomotors are not those that are shown", 0);
  if (field.number >= lines.size()) return Refused("the object names no locomotor", 0);
  return WordIn(block, lines[field.number], kLocomotor, kLabels);
}

FieldLine Find(const BlockText& block, const WeaponField& field) {
  const WeaponLines set = FindWeaponLines(block, field);
  if (set.refusal) return {.refusal = set.refusal};
  if (field.number + 1 >= set.lines.size()) return {};
  FieldLine found = WordIn(block, set.lines[field.number + 1], kWeapon, kLabels);
  const BlockLine& line = block.lines[found.line];
  if (!found.refusal && IsNoWeapon(line.text.substr(found.at, found.length)))
    found.refusal = {"its line names no weapon", line.number};
  return found;
}

FieldLine Find(const BlockText& block, const SlotField& field) {
  const std::string slot = std::to_string(field.slot);
  const std::vector<std::size_t> lines = LinesWith(block, slot);
  return lines.empty() ? FieldLine() : WordIn(block, lines.front(), slot, 0);
}

// The lines between the first and the last that hold something.
FieldLine Find(const BlockText& block, const ArmourField& field) {
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    if (!TrimSpaces(block.lines[i].text).empty()) lines.push_back(i);
  }
  std::size_t met = 0;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
    const BlockLine& line = block.lines[lines[i]];
    if (ArmourLineOf(std::string(line.text)).damageType != field.type || met++ != field.number) continue;
    FieldLine found = WordIn(block, lines[i], kArmor, kLabels);
    const ShownWord word = ShownPercentage(line.text);
    if (KeyWord(line.text) == kArmor) found.refusal = {std::string(word.problem), line.number};
    found.at = word.at;
    found.length = word.length;
    return found;
  }
  return Refused("the armour has no such line any more", 0);
}

// The conditions of a weapon set as they are shown: all values without line ends.
std::string ConditionsOf(std::string_view set) {
  return Join(SParse::ParameterValues(kConditions, set), {});
}

// A line's set in the display grammar: an index, or kNowhere.
std::vector<std::size_t> SetsOfLines(const BlockText& block) {
  std::vector<std::size_t> sets;
  std::size_t set = 0;
  bool inSet = false;
  for (const BlockLine& line : block.lines) {
    inSet = inSet || line.text.starts_with(kWeaponSetHeader);
    sets.push_back(inSet ? set : kNowhere);
    if (!inSet || !line.text.starts_with(kWeaponSetEnd)) continue;
    ++set;
    inSet = false;
  }
  return sets;
}

std::string ValueNumber(std::string_view key, std::string_view text, std::size_t number) {
  const std::vector<std::string_view> values = SParse::ParameterValues(key, text);
  return number < values.size() ? std::string(values[number]) : std::string();
}

std::string Shown(std::string_view text, const KeyField& field) {
  const std::vector<std::string_view> values = SParse::ParameterValues(Prefix(field), text);
  if (field.firstOnly) return values.empty() ? std::string() : std::string(values.front());
  return Join(values, field.spaceFollows ? kLineEnd : std::string_view());
}
std::string Shown(std::string_view text, const LocomotorField& field) {
  return ValueNumber(kLocomotor, text, field.number);
}
std::string Shown(std::string_view text, const WeaponField& field) {
  const std::vector<std::string> sets = WeaponSetsOf(text);
  if (field.set + 1 >= sets.size()) return {};
  std::string weapon = ValueNumber(kWeapon, sets[field.set], field.number + 1);
  return IsNoWeapon(weapon) ? std::string() : weapon;
}
std::string Shown(std::string_view text, const SlotField& field) {
  return ValueNumber(std::to_string(field.slot), text, 0);
}
std::string Shown(std::string_view text, const ArmourField& field) {
  std::size_t met = 0;
  for (const std::string_view each : ArmourLinesOf(text)) {
    ArmourLine line = ArmourLineOf(std::string(each));
    if (line.damageType == field.type && met++ == field.number) return std::move(line.percentage);
  }
  return {};
}

}  // namespace

WeaponLines FindWeaponLines(const BlockText& block, const WeaponField& field) {
  const std::vector<std::size_t> sets = SetsOfLines(block);
  WeaponLines found;
  std::string text;
  std::size_t headers = 0;
  std::size_t inner = kNowhere;
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    if (sets[i] != field.set) continue;
    const BlockLine& line = block.lines[i];
    text.append(line.text).append(kLineEnd);
    if (line.text.starts_with(kWeaponSetHeader)) ++headers;
    if (!TrimSpaces(line.text).starts_with(kWeapon)) continue;
    if (!found.lines.empty() && inner == kNowhere) inner = line.inner;
    const bool elsewhere = !found.lines.empty() && line.inner != inner;
    if (elsewhere) found.refusal = {"its weapon set shares lines with what follows", line.number};
    found.lines.push_back(i);
  }
  if (found.lines.empty() || ConditionsOf(text) != field.conditions)
    found.refusal = {std::string(kOtherSets), 0};
  if (headers > 1)
    found.refusal = {"its weapon set shares lines with the next", block.lines[found.lines.front()].number};
  return found;
}

FieldLine FindField(const BlockText& block, const Field& field) {
  return std::visit([&block](const auto& each) { return Find(block, each); }, field);
}

std::string ShownValue(std::string_view text, const Field& field) {
  return std::visit([text](const auto& each) { return Shown(text, each); }, field);
}

std::string TextOf(const BlockText& block) {
  std::string text;
  for (const BlockLine& line : block.lines) text.append(line.text).append(kLineEnd);
  return text;
}

}  // namespace korvane
