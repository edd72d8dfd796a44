// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/SParse.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ini/BlockParts.h"
#include "ini/Blocks.h"
#include "ini/DataFiles.h"
#include "ini/DisplayGrammar.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

std::string Key(std::string_view name) {
  std::string key(name);
  key += ' ';
  return key;
}

std::optional<std::string> SingleValue(std::string_view key, std::string_view text) {
  const std::vector<std::string_view> values = SParse::ParameterValues(key, text);
  if (values.empty()) return std::nullopt;
  return Join(values, kLineEnd);
}

}  // namespace

SParse::SParse(std::function<std::string()> gameFolder, Yield yield, std::function<void(bool)> busyPointer)
    : gameFolder_(std::move(gameFolder)),
      yield_(std::move(yield)),
      busyPointer_(std::move(busyPointer)),
      TVItem1_(yield_) {
  TVItem1_.ProcStart = [this] { startCollecting(); };
  TVItem1_.NewLine = [this](std::string_view line) { takeLine(line); };
  TVItem1_.ProcDone = [this] {
    if (busyPointer_) busyPointer_(false);
  };
}

void SParse::startCollecting() {
  Collecting = true;
  InBlock_ = false;
  buffer_.clear();
  if (busyPointer_) busyPointer_(true);
}

void SParse::takeLine(std::string_view line) {
  if (!Collecting) return;
  if (!InBlock_) InBlock_ = BeginsWithIgnoringCase(line, lowerHeader_);
  if (!InBlock_) return;
  buffer_ += line;
  buffer_ += kLineEnd;
  if (EndsBlock(line)) Collecting = false;
}

std::string SParse::GetObjectText(std::string_view ObjectHeader, std::optional<std::string_view> IniFile) {
  TVItem1_.GamePath = gameFolder_();
  lowerHeader_ = ToLowerAscii(Key(ObjectHeader) + ObjectName);
  TVItem1_.GetFUnitData(IniFile);
  return buffer_;
}

std::string SParse::GetParameterValue(std::string_view ObjectHeader, std::string_view Parameter,
                                      std::optional<std::string_view> IniFile) {
  return GetParameterValueNoINI(ObjectHeader, Parameter, GetObjectText(ObjectHeader, IniFile));
}

std::string SParse::GetParameterValueNoINI(std::string_view /*ObjectHeader*/, std::string_view Parameter,
                                           std::string_view StrData) {
  const std::vector<std::string_view> values = ParameterValues(Parameter, StrData);
  return values.empty() ? std::string() : Join(values, kLineEnd).append(kLineEnd);
}

std::vector<std::string_view> SParse::ParameterValues(std::string_view key, std::string_view text) {
  std::vector<std::string_view> values;
  ForEachPiece(text, kLineEnd, [&](std::string_view line) {
    if (TrimSpaces(line).starts_with(key)) values.push_back(ExtractValue(line));
  });
  return values;
}

std::optional<std::string> SParse::GetWeaponValue(std::string_view key, std::string_view text) const {
  auto value = SingleValue(Key(key), text);
  if (value && yield_) yield_();
  return value;
}

std::optional<std::string> SParse::GetLocomotorValue(std::string_view key, std::string_view text) {
  return SingleValue(Key(key), text);
}

std::optional<std::string> SParse::GetCommandButtonValue(std::string_view key, std::string_view text) {
  return SingleValue(Key(key), text);
}

std::optional<std::string> SParse::GetCommandSetValue(int slot, std::string_view text) {
  return SingleValue(std::to_string(slot), text);
}

std::string SParse::RemVBCrLf(std::string_view Text) {
  std::string kept;
  ForEachPiece(Text, kLineEnd, [&](std::string_view line) {
    if (TrimSpaces(line).empty()) return;
    kept += line;
    kept += kLineEnd;
  });
  if (!kept.empty()) kept.resize(kept.size() - kLineEnd.size());
  return kept;
}

std::vector<std::string> SParse::LocomotorNames(const SelectedObject& object) {
  ObjectName = object.name;
  const std::string text = GetObjectText("Object", object.file);
  const std::vector<std::string_view> names = ParameterValues("Locomotor", text);
  return {names.begin(), names.end()};
}

std::string SParse::GetLocomotorNames(const SelectedObject& object) {
  const std::vector<std::string> names = LocomotorNames(object);
  if (!names.empty()) ObjectName = names.back();
  return Join({names.begin(), names.end()}, kLineEnd);
}

std::string SParse::GetLocomotors(const SelectedObject& object) {
  std::string texts;
  for (std::string& name : LocomotorNames(object)) {
    ObjectName = std::move(name);
    texts += GetObjectText("Locomotor", kLocomotorFile);
    texts += kLineEnd;
  }
  return texts;
}

void SParse::GetLocomotorData(const SelectedObject& object, int selectedTab, int LowerBound, int UpperBound,
                              LocomotorFields& fields) {
  std::vector<std::string> names = LocomotorNames(object);
  const auto number = static_cast<std::size_t>(selectedTab - 1);
  if (number < names.size()) ObjectName = std::move(names[number]);
  const std::string text = GetObjectText("Locomotor", kLocomotorFile);
  for (int i = LowerBound; i <= UpperBound; ++i) fields.reset(i);
  for (std::size_t i = 0; i < kLocomotorKeys.size(); ++i) {
    if (const auto value = GetLocomotorValue(kLocomotorKeys[i], text))
      fields.insert(static_cast<int>(i), *value);
  }
}

void SParse::ExtractWeapons(std::string_view StrData) {
  Collecting = true;
  InBlock_ = false;
  weaponSetTexts_ = WeaponSetsOf(StrData, yield_);
}

bool IsNoWeapon(std::string_view word) {
  constexpr std::array<std::string_view, 4> kNoWeapons = {"weaponset", "yes", "no", kLineEnd};
  return std::ranges::find(kNoWeapons, ToLowerAscii(word)) != kNoWeapons.end();
}

std::vector<std::string> WeaponSetsOf(std::string_view objectText, const Yield& yield) {
  const std::vector<std::string_view> lines = Split(objectText, kLineEnd);
  const auto sets = static_cast<std::size_t>(std::count_if(
      lines.begin(), lines.end(), [](std::string_view line) { return line.starts_with(kWeaponSetHeader); }));
  std::vector<std::string> texts(sets + 1);
  std::size_t k = 0;
  bool inSet = false;
  for (const std::string_view line : lines) {
    if (yield) yield();
    inSet = inSet || line.starts_with(kWeaponSetHeader);
    if (!inSet) continue;
    if (k == sets) break;
    texts[k] += line;
    texts[k] += kLineEnd;
    if (!line.starts_with(kWeaponSetEnd)) continue;
    ++k;
    inSet = false;
  }
  return texts;
}

}  // namespace korvane
