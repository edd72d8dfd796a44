// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "compare/ComparedTexts.h"

namespace korvane {

// One row of two texts that stand side by side.
struct AlignedRow {
  enum class State { same, changed, removed, added, fold };

  State state = State::same;
  std::uint32_t former = 0;   // number of the line, from 1; 0: this text has none here
  std::uint32_t present = 0;  // the same
  std::uint32_t folded = 0;   // of a fold: how many rows behind it can be hidden

  bool operator==(const AlignedRow&) const = default;
};

struct AlignedRows {
  std::vector<AlignedRow> rows;
  std::vector<std::size_t> changes;  // the first row of each change, in their order
};

// Lines that became others stand beside each other, those with the same key first of all. Equal lines have a
// fold before them, except for a few beside each change.
AlignedRows AlignRows(const ComparedTexts& texts);

}  // namespace korvane
