// SPDX-License-Identifier: GPL-3.0-or-later
// Two texts of any bytes, with a zero byte between them, as the same file of two modifications.
#include <cstdint>

#include "FuzzFolder.h"
#include "compare/Comparison.h"
#include "compare/LineDifference.h"

namespace {

using namespace korvane;

using Lines = std::vector<std::string_view>;

void CheckWords(std::string_view former, std::string_view present) {
  const WordDifference difference = CompareWords(former, present);
  Require((former == present) == (difference.former.empty() && difference.present.empty()));
  for (const auto& [line, parts] :
       {std::pair(former, difference.former), std::pair(present, difference.present)}) {
    std::size_t behind = 0;
    for (const LinePart& part : parts) {
      Require(part.size > 0 && part.begin >= behind && part.begin + part.size <= line.size());
      behind = part.begin + part.size;
    }
  }
}

// The runs are all of both texts, and equal where they say so.
void CheckLines(const Lines& former, const Lines& present) {
  std::size_t oldAt = 0;
  std::size_t newAt = 0;
  for (const DifferenceRun& run : CompareLines(former, present)) {
    Require(run.oldBegin == oldAt && run.newBegin == newAt && run.oldCount + run.newCount > 0);
    if (run.equal) Require(run.oldCount == run.newCount);
    for (std::size_t i = 0; run.equal && i < run.oldCount; ++i)
      Require(former[oldAt + i] == present[newAt + i]);
    if (!run.equal && run.oldCount > 0 && run.newCount > 0) CheckWords(former[oldAt], present[newAt]);
    oldAt += run.oldCount;
    newAt += run.newCount;
  }
  Require(oldAt == former.size() && newAt == present.size());
}

std::size_t Count(const Comparison& comparison, ItemState state) {
  std::size_t count = 0;
  for (const ItemChange& item : comparison.items) count += item.state == state ? 1 : 0;
  return count;
}

void CheckItems(const DataSource& former, const DataSource& present) {
  const Comparison forth = *CompareSources(former, present);
  const Comparison back = *CompareSources(present, former);
  Require(CompareSources(former, former, {.text = true})->items.empty());
  Require(Count(forth, ItemState::added) == Count(back, ItemState::removed));
  Require(Count(forth, ItemState::removed) == Count(back, ItemState::added));
  Require(Count(forth, ItemState::changed) == Count(back, ItemState::changed));
  for (const ItemChange& item : forth.items)
    for (const KeyChange& key : item.keys)
      Require(key.former != key.present && key.formerLine + key.presentLine > 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder original;
  static const FuzzFolder mod;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t cut = std::min(input.find('\0'), size);
  const std::string_view former = input.substr(0, cut);
  const std::string_view present = input.substr(std::min(cut + 1, size));
  CheckLines(LinesOf(former), LinesOf(present));
  original.write("Data/INI/Weapon.ini", former);
  mod.write("Data/INI/Weapon.ini", present);
  CheckItems({{original.path()}}, {{mod.path()}});
  return 0;
}
