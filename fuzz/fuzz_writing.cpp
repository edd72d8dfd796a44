// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a text in which somebody writes on: what is proposed at its end, where that end stands by a
// slow second way, and copies of its blocks.
#include <set>

#include "FuzzFolder.h"
#include "catalogue/StructureReader.h"
#include "writing/BlockCopy.h"
#include "writing/Proposals.h"
#include "writing/Tips.h"
#include "writing/WritingPlace.h"

namespace {

using namespace korvane;

constexpr std::string_view kPath = "Data\\INI\\Weapon.ini";
constexpr std::string_view kNames =
    "FXList FX_Bang\nEnd\nWeapon Gun\nEnd\nWeapon BigGun\nEnd\nCommandSet Set\nEnd\nObject Tank\nEnd\n";

const Catalogue& Names() {
  static const Catalogue names({}, {CatalogueFile::read({.path = "Data\\INI\\Default.ini"}, kNames)}, {});
  return names;
}

// By reading all of the text before the last line.
BlockTypeId SlowBlockBehind(std::string_view text) {
  const std::string_view before = text.substr(0, text.find_last_of("\r\n") + 1);
  BlockTypeId type = kOutsideBlocks;
  for (const TextBlock& block : ReadBlocks(before)) {
    if (!block.closed && block.behind == before.size()) type = block.type;
  }
  return type;
}

void CheckPlace(std::string_view text) {
  const WritingPlace place = PlaceBehind(text);
  Require(text.ends_with(place.typed));
  if (place.part != WritingPlace::Part::nothing) Require(place.block == SlowBlockBehind(text));
}

void CheckProposals(std::string_view text) {
  constexpr std::size_t kMost = 50;
  const Proposals proposals = Propose(text, {&Names(), kPath, {}}, kMost);
  Require(proposals.typed <= text.size() && proposals.list.size() <= kMost);
  std::set<std::string_view> texts;
  for (const Proposal& each : proposals.list) {
    Require(!each.text.empty() && texts.insert(each.text).second);
    for (const char byte : each.text) Require(!SeparatesWords(byte));
  }
}

// A copy with a name that can be had reads as the block does.
void CheckCopy(std::string_view text, const std::vector<TextBlock>& blocks, const TextBlock& block) {
  constexpr std::string_view kName = "Copied";
  OwnNamesIn(text, block, &Names());
  if (!WhyNoCopy(block).empty() || !WhyNotNamed({kName, block, blocks, &Names(), kPath}).empty()) return;
  const BlockCopy copy = CopyOf(text, block, kName);
  Require(std::string_view(copy.text).substr(copy.nameAt).starts_with(kName));
  const std::vector<TextBlock> copied = ReadBlocks(copy.text);
  Require(!copied.empty() && NameOf(copied.front()) == kName && copied.front().type == block.type);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckPlace(text);
  CheckProposals(text);
  FirstLines(text, 5);
  const std::vector<TextBlock> blocks = ReadBlocks(text);
  for (const TextBlock& block : blocks) {
    if (block.depth == 0) CheckCopy(text, blocks, block);
  }
  return 0;
}
