// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"
#include "compare/ComparedBlock.h"
#include "compare/DataSource.h"

namespace korvane {

enum class ItemState { added, removed, changed };
constexpr std::array<std::string_view, 3> kItemStates = {"added", "removed", "changed"};

// Where an item stands in a source.
struct ItemPosition {
  std::uint32_t file = 0;  // in the comparison's list of that source
  std::uint32_t line = 0;  // from 1; 0: it is not there
  std::uint32_t lastLine = 0;

  bool operator==(const ItemPosition&) const = default;
};

// An item that is not the same in both sources. Texts are the files' bytes.
struct ItemChange {
  KindId kind = kNoKind;  // kNoKind: a line outside of all blocks, named by its key
  std::string name;       // as the modification spells it, or the original what is gone
  std::string side;       // the value of its key Side; empty where there is none
  ItemState state = ItemState::changed;
  ItemPosition former;
  ItemPosition present;
  std::vector<KeyChange> keys;  // of a changed one; none when order, spacing or comments alone differ
};

struct Comparison {
  std::vector<SourceFile> formerFiles;
  std::vector<SourceFile> presentFiles;
  std::vector<ItemChange> items;     // sorted by kind, name and place
  std::vector<SkippedFile> skipped;  // of both: what is said of them may be wrong

  const SourceFile& fileOf(const ItemChange& item) const {
    return item.state == ItemState::removed ? formerFiles[item.former.file] : presentFiles[item.present.file];
  }
  std::uint32_t lineOf(const ItemChange& item) const {
    return item.state == ItemState::removed ? item.former.line : item.present.line;
  }
};

struct ComparisonWish {
  std::vector<KindId> kinds{};  // only items of these; none: all
  bool text = false;            // also items in which only order, spacing or comments differ
  TellProgress progress{};      // called from two threads, never at a time
};

// Items of one kind and name are one item wherever they stand; of several those with the same text belong
// together, then those in a file of the same path, then the others in their order. Nothing when it was asked
// to stop. Texts of both sources are held in memory meanwhile.
std::optional<Comparison> CompareSources(const DataSource& original, const DataSource& modification,
                                         const ComparisonWish& wish = {}, const std::stop_token& stop = {});

// "Object"; of lines outside of all blocks an empty text.
std::string_view KindText(KindId kind);

}  // namespace korvane
