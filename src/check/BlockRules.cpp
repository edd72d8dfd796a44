// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <string>

#include "catalogue/FoldedText.h"
#include "check/EditDistance.h"
#include "check/FileCheck.h"
#include "check/RuleFunctions.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

std::string InLine(std::uint32_t line) {
  return " in line " + std::to_string(line);
}

void CheckOpenBlock(FileCheck& check, const StructureFault& fault) {
  const BlockHeader& open = fault.open.front();
  std::string text = HeaderText(open) + " is not closed before ";
  text += fault.text.empty() ? "the end of the file" : Shown(fault.text) + InLine(fault.place.line);
  const EndedBlock& suspect = check.lacksEnd();
  const bool isSuspect = suspect.end > 0 && suspect.header.place.line > open.place.line;
  if (isSuspect)
    text +=
        "; most likely " + HeaderText(suspect.header) + InLine(suspect.header.place.line) + " lacks its End";
  Finding& finding =
      check.report(RuleId::openBlock, fault.place.line, {fault.text, fault.place.column}, std::move(text));
  finding.other = {finding.file, static_cast<int>((isSuspect ? suspect.header : open).place.line)};
}

// What looks like another word for a kind of block, as in "Wepon TankGun".
std::string_view KindMeant(std::string_view text) {
  const std::string_view word = text.substr(0, text.find_first_of(" \t="));
  for (const Kind& kind : GameStructure::get().kinds()) {
    const std::size_t allowed = EditsAllowed(word.size());
    if (allowed > 0 && EditsBetween(word, kind.name, allowed) <= allowed) return kind.name;
  }
  return {};
}

std::string WhatIsOutside(const StructureFault& fault) {
  if (fault.kind == StructureFault::Kind::strayEnd) return "End closes nothing here: no block is open";
  if (fault.parent == nullptr) return Quoted(fault.text) + " stands outside any block";
  return Quoted(fault.text) + " has no place in " + HeaderText(*fault.parent);
}

void CheckOutside(FileCheck& check, const StructureFault& fault) {
  if (fault.follows) return;
  const bool isEnd = fault.kind == StructureFault::Kind::strayEnd;
  const bool isBetweenBlocks = !isEnd && fault.parent == nullptr;
  const std::string_view kind = isBetweenBlocks ? KindMeant(fault.text) : std::string_view();
  const EndedBlock& suspect = check.endsTooSoon();
  std::string text = WhatIsOutside(fault);
  if (!kind.empty())
    text.append("; is '").append(kind).append("' meant?");
  else if (suspect.end > 0)
    text += "; most likely the End" + InLine(suspect.end) + " is one too many";
  else if (!isEnd)
    text += "; was the block before it closed too early?";
  Finding& finding = check.report(isEnd ? RuleId::strayEnd : RuleId::looseText, fault.place.line,
                                  {fault.text, fault.place.column}, std::move(text));
  finding.suggestion = kind;
  if (kind.empty() && suspect.end > 0) finding.other = {finding.file, static_cast<int>(suspect.end)};
}

// Keys that may have several values although they have one name, and words that choose among values.
constexpr std::array<std::string_view, 5> kListKeys = {"KindOf", "Flags", "Animation", "HideSubObject",
                                                       "ShowSubObject"};
constexpr std::array<std::string_view, 10> kPlaces = {"PRIMARY",  "SECONDARY", "TERTIARY", "INITIAL",
                                                      "MIDPOINT", "FINAL",     "REGULAR",  "VETERAN",
                                                      "ELITE",    "HEROIC"};

using Words = std::vector<std::string_view>;

Words WordsOf(std::string_view value) {
  Words words;
  WordReader reader(value, 1);
  for (TextWord word = reader.next(); !word.text.empty(); word = reader.next()) words.push_back(word.text);
  return words;
}

bool IsPlace(std::string_view word) {
  return std::ranges::any_of(kPlaces, [word](std::string_view place) { return EqualFolded(place, word); });
}

bool DifferInPlace(const Words& a, const Words& b) {
  return !a.empty() && !b.empty() && (IsPlace(a[0]) || IsPlace(b[0])) && !EqualFolded(a[0], b[0]);
}

bool SameWords(Words a, Words b) {
  std::ranges::sort(a);
  std::ranges::sort(b);
  return a == b;
}

std::string OuterText(const OuterBlock& block) {
  const std::string keyword = Shown(block.keyword.text);
  return block.name.text.empty() ? keyword : keyword + ' ' + Shown(block.name.text);
}

std::string KeyInBlock(const FileCheck& check, const KeyLine& key) {
  const bool isSlot = key.key.text.find_first_not_of("0123456789") == std::string_view::npos;
  const std::string block = key.block->depth == 0 ? OuterText(check.outer()) : HeaderText(*key.block);
  return (isSlot ? "slot " : "") + Shown(key.key.text) + " is given twice in " + block;
}

// What a button's command needs besides.
struct ButtonNeed {
  std::string_view command;
  std::string_view key;
};
constexpr ButtonNeed kButtonNeeds[] = {
    {"UNIT_BUILD", "Object"},
    {"DOZER_CONSTRUCT", "Object"},
    {"PLAYER_UPGRADE", "Upgrade"},
    {"OBJECT_UPGRADE", "Upgrade"},
    {"SPECIAL_POWER", "SpecialPower"},
    {"SPECIAL_POWER_FROM_SHORTCUT", "SpecialPower"},
    {"SPECIAL_POWER_CONSTRUCT", "SpecialPower"},
    {"SPECIAL_POWER_CONSTRUCT_FROM_SHORTCUT", "SpecialPower"},
    {"PURCHASE_SCIENCE", "Science"},
    {"SWITCH_WEAPON", "WeaponSlot"},
};

KindId ButtonKind() {
  static const KindId kind = GameStructure::get().kind("CommandButton");
  return kind;
}

const GivenKey* FindGiven(const FileCheck& check, std::string_view key) {
  const auto all = check.given();
  const auto found =
      std::ranges::find_if(all, [key](const GivenKey& each) { return EqualFolded(each.key.text, key); });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

void CheckFault(FileCheck& check, const StructureFault& fault) {
  const bool isOpen = fault.kind == StructureFault::Kind::openBlock;
  const RuleId rule = isOpen                                         ? RuleId::openBlock
                      : fault.kind == StructureFault::Kind::strayEnd ? RuleId::strayEnd
                                                                     : RuleId::looseText;
  if (!check.wants(rule)) return;
  isOpen ? CheckOpenBlock(check, fault) : CheckOutside(check, fault);
}

void CheckKeyGivenOnce(FileCheck& check, const KeyLine& key) {
  if (key.block == nullptr || key.facts == nullptr || key.facts->repeat != Repeat::once) return;
  const GivenKey* before = check.givenBefore();
  if (before == nullptr || std::ranges::find(kListKeys, key.facts->key) != kListKeys.end()) return;
  const Words first = WordsOf(before->value.text);
  const Words second = WordsOf(key.value);
  const bool same = first == second;
  const RuleId rule = same ? RuleId::sameTwice : RuleId::keyTwice;
  if (!check.wants(rule) || (!same && (DifferInPlace(first, second) || SameWords(first, second)))) return;
  std::string text = KeyInBlock(check, key);
  if (same)
    text += " with the same value, first" + InLine(before->line);
  else
    text += ": " + Quoted(before->value.text) + InLine(before->line) + ", " + Quoted(key.value) +
            " here; only one of them can count";
  Finding& finding = check.report(rule, key.place.line, key.key, std::move(text));
  finding.other = {finding.file, static_cast<int>(before->line)};
}

void CheckModuleTag(FileCheck& check, const BlockHeader& block) {
  if (block.depth != 1 || block.second.text.empty() || !GameStructure::get().type(block.type).moduleFollows)
    return;
  const std::uint32_t before = check.noteTag(block.second.text, block.place.line);
  if (before == 0) return;
  Finding& finding = check.report(RuleId::tagTwice, block.place.line, block.second,
                                  "the tag " + Quoted(block.second.text) + " is taken by the module" +
                                      InLine(before) + " of " + OuterText(check.outer()));
  finding.other = {finding.file, static_cast<int>(before)};
}

void CheckButtonIsComplete(FileCheck& check, const BlockHeader& block, const BlockEnd& /*end*/) {
  if (block.depth > 0 || check.outer().kind != ButtonKind()) return;
  const GivenKey* command = FindGiven(check, "Command");
  if (command == nullptr) return;
  const std::string_view word = WordReader(command->value.text, 1).next().text;
  for (const ButtonNeed& need : kButtonNeeds) {
    if (!EqualFolded(need.command, word) || FindGiven(check, need.key) != nullptr) continue;
    check.report(
        RuleId::buttonLacks, command->line, command->value,
        Shown(block.first.text) + " has Command = " + Shown(word) + " but no " + std::string(need.key));
  }
}

}  // namespace korvane
