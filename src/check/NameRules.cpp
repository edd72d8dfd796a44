// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/FoldedText.h"
#include "check/EditDistance.h"
#include "check/FileCheck.h"
#include "check/RuleFunctions.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

std::string KindName(SpaceId space) {
  const GameStructure& structure = GameStructure::get();
  return std::string(structure.kinds()[structure.kindOfSpace(space)].name);
}

std::string WithArticle(std::string_view noun) {
  const bool vowel = std::string_view("AEIOU").find(noun.front()) != std::string_view::npos;
  return std::string(vowel ? "an " : "a ").append(noun);
}

// What stands at the end of "no Weapon 'X' is defined".
std::string Hint(const FileCheck& check, const NameUse& use, std::string_view nearest) {
  if (!nearest.empty()) return "; is " + Quoted(nearest) + " meant?";
  const KindId elsewhere = check.context().names.kindElsewhere(use.space, use.word.text);
  if (elsewhere == kNoKind) return "";
  return "; only " + WithArticle(GameStructure::get().kinds()[elsewhere].name) + " has that name";
}

std::string ShortPath(std::string_view path) {
  constexpr std::string_view kFolder = "data/ini/";
  const bool below = path.size() > kFolder.size() && EqualFolded(path.substr(0, kFolder.size()), kFolder);
  return std::string(below ? path.substr(kFolder.size()) : path);
}

// The block's text without the blanks at its end.
std::string_view Trimmed(std::string_view text) {
  return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

// The first definition of what is defined again here. Further data does not count.
std::optional<DefinedNames::Definition> DefinedBefore(const FileCheck& check) {
  const OuterBlock& block = check.outer();
  const auto first = check.context().names.firstOwn(block.space, block.name.text);
  const bool isThis = first && first->file == &check.file().known && first->block().firstLine == block.line;
  return isThis ? std::nullopt : first;
}

}  // namespace

void CheckNameIsDefined(FileCheck& check, const NameUse& use) {
  if (use.spelling) return;
  const std::string_view nearest = check.nearestName(use.space, use.word.text);
  Finding& finding = check.report(
      RuleId::missingName, use.line, use.word,
      Shown(use.key) + ": no " + KindName(use.space) + " " + Quoted(use.word.text) + " is defined");
  finding.text += Hint(check, use, nearest);
  finding.suggestion = Shown(nearest);
  finding.group = KindName(use.space) + " " + ToLowerAscii(Shown(use.word.text));
}

void CheckNameIsSpeltAsDefined(FileCheck& check, const NameUse& use) {
  if (!use.spelling) return;
  check
      .report(RuleId::letterCase, use.line, use.word,
              Shown(use.key) + ": " + Quoted(use.word.text) + " is defined as " + Quoted(*use.spelling))
      .suggestion = Shown(*use.spelling);
}

void CheckDefinedOnce(FileCheck& check, const BlockHeader& block, const BlockEnd& end) {
  const OuterBlock& outer = check.outer();
  if (block.depth > 0 || outer.name.text.empty()) return;
  const Again again = GameStructure::get().kinds()[outer.kind].again;
  if (again == Again::nothing) return;
  const auto first = DefinedBefore(check);
  if (!first) return;
  const std::string_view text = check.file().text.substr(block.lineOffset, end.behind - block.lineOffset);
  const bool same = Trimmed(check.textOf(*first)) == Trimmed(text);
  const std::string file = FindingPath(first->file->source());
  const std::uint32_t line = first->block().firstLine;
  const std::string_view ending =
      same ? ", with the same text" : ", with another text: only one of the two can count";
  Finding& finding =
      check.report(RuleId::duplicate, outer.line, outer.name,
                   Shown(outer.keyword.text) + " " + Shown(outer.name.text) + " is already defined in " +
                       (first->file == &check.file().known ? "" : ShortPath(file) + ", ") + "line " +
                       std::to_string(line) + std::string(ending));
  finding.level = again == Again::error ? Level::error : Level::warning;
  finding.other = {file, static_cast<int>(line)};
}

void CheckSide(FileCheck& check, const KeyLine& key) {
  if (key.block == nullptr || key.block->depth > 0 || key.facts == nullptr || key.facts->key != "Side" ||
      check.outer().space != GameStructure::get().space("Object"))
    return;
  const TextWord side = key.words().next();
  const std::size_t allowed = EditsAllowed(side.text.size());
  const auto isSide = [&](const std::string& known) { return EqualFolded(known, side.text); };
  const auto isNear = [&](const std::string& known) {
    return EditsBetween(side.text, known, allowed) <= allowed && !SameSeries(side.text, known);
  };
  const auto& sides = check.context().sides;
  if (allowed == 0 || std::ranges::any_of(sides, isSide)) return;
  const auto meant = std::ranges::find_if(sides, isNear);
  if (meant == sides.end()) return;
  check
      .report(RuleId::sideTypo, key.place.line, side,
              "Side: " + Quoted(side.text) + " is no side of a player; is " + Quoted(*meant) + " meant?")
      .suggestion = Shown(*meant);
}

}  // namespace korvane
