// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

// A part of two sequences: equal in both, or what stands in one in the place of the other.
struct DifferenceRun {
  bool equal = false;
  std::size_t oldBegin = 0;
  std::size_t oldCount = 0;
  std::size_t newBegin = 0;
  std::size_t newCount = 0;

  bool operator==(const DifferenceRun&) const = default;
};

// All of both sequences in their order; equal and other runs take turns. What occurs once in both is equal
// wherever the order allows it; between such elements few differences are wanted, not the fewest. Takes about
// linear time whatever the sequences are.
std::vector<DifferenceRun> CompareSequences(std::span<const std::uint32_t> former,
                                            std::span<const std::uint32_t> present);

}  // namespace korvane
