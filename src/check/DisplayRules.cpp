// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <string>
#include <vector>

#include "catalogue/FoldedText.h"
#include "check/FileCheck.h"
#include "check/RuleFunctions.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// The kinds whose blocks the windows show by name, and the file in which they look for them; objects are
// looked for in every file.
struct ShownKind {
  std::string_view kind;
  std::string_view file;
};
constexpr ShownKind kShownKinds[] = {{"Object", ""},
                                     {"Weapon", kWeaponFile},
                                     {"Armor", kArmorFile},
                                     {"Locomotor", kLocomotorFile},
                                     {"CommandSet", kCommandSetFile},
                                     {"CommandButton", kCommandButtonFile}};
constexpr std::string_view kNotFoundByPrefix = "Locomotor";

bool IsFile(const FileCheck& check, std::string_view name) {
  constexpr std::string_view kFolder = "data/ini/";
  const std::string path = ToLowerAscii(FindingPath(check.file().known.source()));
  return path.starts_with(kFolder) && EqualFolded(std::string_view(path).substr(kFolder.size()), name);
}

bool IsShown(const FileCheck& check, const OuterBlock& block) {
  const std::string_view kind = GameStructure::get().kinds()[block.kind].name;
  return block.shown && std::ranges::any_of(kShownKinds, [&](const ShownKind& shown) {
           return shown.kind == kind && (shown.file.empty() || IsFile(check, shown.file));
         });
}

std::vector<const OuterBlock*> ShownBlocks(const FileCheck& check) {
  std::vector<const OuterBlock*> blocks;
  for (const OuterBlock& block : check.outerBlocks())
    if (IsShown(check, block)) blocks.push_back(&block);
  return blocks;
}

bool BeginsFolded(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualFolded(text.substr(0, prefix.size()), prefix);
}

bool SameName(const OuterBlock* a, const OuterBlock* b) {
  return a->kind == b->kind && EqualFolded(a->name.text, b->name.text);
}

// The first block of each name, by kind and name.
std::vector<const OuterBlock*> FirstOfEachName(std::vector<const OuterBlock*> blocks) {
  std::ranges::sort(blocks, [](const OuterBlock* a, const OuterBlock* b) {
    if (a->kind != b->kind) return a->kind < b->kind;
    if (!EqualFolded(a->name.text, b->name.text)) return LessFolded(a->name.text, b->name.text);
    return a->line < b->line;
  });
  blocks.erase(std::unique(blocks.begin(), blocks.end(), SameName), blocks.end());
  return blocks;
}

// For each of the blocks the first one whose name begins with its name. Names that begin alike stand
// together, so that one pass from the end is enough.
std::vector<const OuterBlock*> ShownInstead(const std::vector<const OuterBlock*>& sorted) {
  std::vector<const OuterBlock*> instead = sorted;
  std::vector<std::size_t> roots;  // no one's name begins with that of another before it
  for (std::size_t i = sorted.size(); i-- > 0;) {
    const auto beginsLikeThis = [&](std::size_t other) {
      return sorted[other]->kind == sorted[i]->kind &&
             BeginsFolded(sorted[other]->name.text, sorted[i]->name.text);
    };
    for (; !roots.empty() && beginsLikeThis(roots.back()); roots.pop_back())
      if (instead[roots.back()]->line < instead[i]->line) instead[i] = instead[roots.back()];
    roots.push_back(i);
  }
  return instead;
}

// How many line feeds there are without a carriage return before them. In most files there is none, and this
// is all that is asked: it is counted without a branch, in counters that the compiler can put side by side.
std::size_t CountBareLineFeeds(std::string_view text) {
  constexpr std::size_t kAtOnce = 128;
  std::size_t count = text.starts_with('\n') ? 1 : 0;
  for (std::size_t begin = 1; begin < text.size(); begin += kAtOnce) {
    const std::size_t end = std::min(begin + kAtOnce, text.size());
    unsigned char some = 0;
    for (std::size_t i = begin; i < end; ++i) {
      const int isBare = static_cast<int>(text[i] == '\n') & static_cast<int>(text[i - 1] != '\r');
      some = static_cast<unsigned char>(some + isBare);
    }
    count += some;
  }
  return count;
}

// The line of the first of them, counted as the game counts lines.
std::uint32_t FirstBareLineFeed(std::string_view text) {
  std::uint32_t line = 1;
  for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1), ++line)
    if (at == 0 || text[at - 1] != '\r') break;
  return line;
}

}  // namespace

void CheckShadowedBlocks(FileCheck& check) {
  const std::vector<const OuterBlock*> blocks = FirstOfEachName(ShownBlocks(check));
  const std::vector<const OuterBlock*> instead = ShownInstead(blocks);
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const OuterBlock& block = *blocks[i];
    const bool isLookedFor = GameStructure::get().kinds()[block.kind].name != kNotFoundByPrefix;
    if (instead[i] == &block || !isLookedFor) continue;
    const std::string line = std::to_string(instead[i]->line);
    Finding& finding =
        check.report(RuleId::shadowed, block.line, block.name,
                     "Korvane shows " + Shown(instead[i]->name.text) + " of line " + line + " in place of " +
                         Shown(block.name.text) + ", for its longer name stands first");
    finding.other = {finding.file, static_cast<int>(instead[i]->line)};
  }
}

void CheckShortenedBlocks(FileCheck& check) {
  for (const OuterBlock* block : ShownBlocks(check)) {
    if (block->innerEnd == 0 || block->lastContent <= block->innerEnd) continue;
    Finding& finding = check.report(RuleId::cutShort, block->innerEnd, {"End", 1},
                                    "Korvane shows " + Shown(block->name.text) +
                                        " only up to here: an End in the first column ends what it shows");
    finding.other = {finding.file, static_cast<int>(block->line)};
  }
}

void CheckLineEnds(FileCheck& check) {
  if (ShownBlocks(check).empty()) return;
  const std::size_t count = CountBareLineFeeds(check.file().text);
  if (count == 0) return;
  const std::string lines = count == 1 ? "1 line ends" : std::to_string(count) + " lines end";
  check.report(RuleId::unixLines, FirstBareLineFeed(check.file().text), {{}, 1},
               lines + " with a line feed alone; Korvane reads each together with the line behind it");
}

}  // namespace korvane
