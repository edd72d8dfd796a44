// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/Rules.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "check/CheckContext.h"
#include "check/RuleFunctions.h"

namespace korvane {

namespace {

constexpr bool kAlways = false;
constexpr bool kOnRequest = true;

constexpr Rule kRules[] = {
    {RuleId::missingName, "missing-name", Level::error, kAlways,
     "A value names an item that nothing defines.", "check-missing-name.md", CheckNameIsDefined},
    {RuleId::openBlock, "open-block", Level::error, kAlways,
     "A block begins although the one before it has not been closed.", "check-open-block.md", CheckFault},
    {RuleId::strayEnd, "stray-end", Level::error, kAlways, "An End stands where no block is open.",
     "check-stray-end.md", CheckFault},
    {RuleId::looseText, "loose-text", Level::error, kAlways, "A line stands outside of all blocks.",
     "check-loose-text.md", CheckFault},
    {RuleId::keyTypo, "key-typo", Level::error, kAlways, "A key is unknown and looks like one that is known.",
     "check-key-typo.md", CheckKeyIsKnown},
    {RuleId::wordTypo, "word-typo", Level::error, kAlways,
     "A word is not on the list of those that may stand there and looks like one that is.",
     "check-word-typo.md", CheckWordsAreKnown},
    {RuleId::numberForm, "number-form", Level::warning, kAlways, "A number cannot be read to its end.",
     "check-number-form.md", CheckNumbers},
    {RuleId::keyTwice, "key-twice", Level::warning, kAlways,
     "A block gives a key two different values, of which only one can count.", "check-key-twice.md",
     CheckKeyGivenOnce},
    {RuleId::duplicate, "duplicate", Level::warning, kAlways,
     "Two blocks of one kind have the same name, and only one of them can count.", "check-duplicate.md",
     CheckDefinedOnce},
    {RuleId::tagTwice, "tag-twice", Level::error, kAlways, "Two modules of an object have the same tag.",
     "check-tag-twice.md", CheckModuleTag},
    {RuleId::buttonLacks, "button-lacks", Level::error, kAlways,
     "A command button lacks a key that its command needs.", "check-button-lacks.md", CheckButtonIsComplete},
    {RuleId::sideTypo, "side-typo", Level::warning, kAlways,
     "An object's side is almost that of a player template.", "check-side-typo.md", CheckSide},
    {RuleId::shadowed, "shadowed", Level::warning, kAlways,
     "Korvane shows another block in place of this one, whose longer name stands first.", "check-shadowed.md",
     CheckShadowedBlocks},
    {RuleId::cutShort, "cut-short", Level::warning, kAlways,
     "Korvane shows the block only up to an End in the first column.", "check-cut-short.md",
     CheckShortenedBlocks},
    {RuleId::unixLines, "unix-lines", Level::warning, kAlways,
     "Korvane reads the file as one line, for its lines end with a line feed alone.", "check-unix-lines.md",
     CheckLineEnds},
    {RuleId::unused, "unused", Level::note, kOnRequest, "Nothing in the INI files names the item.",
     "check-unused.md", CheckUnusedItems},
    {RuleId::letterCase, "case", Level::note, kOnRequest,
     "A name is written in other small and capital letters than its definition.", "check-case.md",
     CheckNameIsSpeltAsDefined},
    {RuleId::noEffect, "no-effect", Level::note, kOnRequest, "An upgrade can be bought and triggers nothing.",
     "check-no-effect.md", CheckUpgradesHaveEffect},
    {RuleId::keyUnknown, "key-unknown", Level::note, kOnRequest,
     "A key is not among those that were met in such a block.", "check-key-unknown.md", CheckKeyIsKnown},
    {RuleId::wordUnknown, "word-unknown", Level::note, kOnRequest,
     "A word is not among those that were met there.", "check-word-unknown.md", CheckWordsAreKnown},
    {RuleId::sameTwice, "same-twice", Level::note, kOnRequest, "A block gives a key the same value twice.",
     "check-same-twice.md", CheckKeyGivenOnce},
};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < std::size(kRules); ++i)
    if (static_cast<std::size_t>(kRules[i].id) != i) return false;
  return true;
}
static_assert(InOrder(), "the table is in the order of RuleId");

}  // namespace

std::string_view LevelName(Level level) {
  constexpr std::array<std::string_view, 3> kNames = {"note", "warning", "error"};
  return kNames[static_cast<std::size_t>(level)];
}

std::span<const Rule> AllRules() {
  return kRules;
}

const Rule& RuleOf(RuleId id) {
  return kRules[static_cast<std::size_t>(id)];
}

const Rule* FindRule(std::string_view code) {
  const auto* found = std::find_if(std::begin(kRules), std::end(kRules),
                                   [code](const Rule& rule) { return rule.code == code; });
  return found == std::end(kRules) ? nullptr : found;
}

RuleSet RuleSet::usual() {
  RuleSet rules;
  for (const Rule& rule : kRules)
    if (!rule.onRequest) rules.add(rule.id);
  return rules;
}

RuleSet RuleSet::all() {
  RuleSet rules;
  for (const Rule& rule : kRules) rules.add(rule.id);
  return rules;
}

ActiveFunctions::ActiveFunctions(const RuleSet& rules) {
  const auto addOnce = [](auto& functions, auto function) {
    if (std::ranges::find(functions, function) == functions.end()) functions.push_back(function);
  };
  for (const Rule& rule : kRules) {
    if (!rules.has(rule.id)) continue;
    std::visit([&](auto function) { addOnce(std::get<std::vector<decltype(function)>>(lists_), function); },
               rule.function);
  }
}

}  // namespace korvane
