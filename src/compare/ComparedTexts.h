// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "compare/SequenceDifference.h"

namespace korvane {

// Lines of a text, by their indexes from 0.
struct LineRange {
  std::size_t begin = 0;
  std::size_t count = 0;

  bool operator==(const LineRange&) const = default;
};

// Lines that stand in the place of others, without an equal line between them.
struct TextChange {
  LineRange former;
  LineRange present;
  std::string block;    // in which it is: "Object AmericaTankCrusader"; empty outside of all blocks
  std::string summary;  // "BuildCost 900 → 800"
};

// Two texts in UTF-8, or in any bytes, and what differs in their lines. Line ends do not count.
class ComparedTexts {
 public:
  // `partOnly`: the former text is only a part; what the present text has before and behind it is no change.
  ComparedTexts(std::string former, std::string present, bool partOnly = false);
  ComparedTexts(const ComparedTexts&) = delete;
  ComparedTexts& operator=(const ComparedTexts&) = delete;

  const std::string& former() const { return former_; }
  const std::string& present() const { return present_; }
  const std::vector<std::string_view>& formerLines() const { return formerLines_; }
  const std::vector<std::string_view>& presentLines() const { return presentLines_; }
  // The lines in their order; equal and other runs take turns. Of a part not all lines of the present text.
  const std::vector<DifferenceRun>& runs() const { return runs_; }
  // In the order of the runs that are not equal.
  const std::vector<TextChange>& changes() const { return changes_; }
  // A line that became another counts once.
  std::size_t linesChanged() const;

  // The present text with the former lines of one change.
  std::string takenBack(const TextChange& change) const;
  // The change that has the same lines in both texts; nullptr when there is none.
  const TextChange* find(const ComparedTexts& other, const TextChange& change) const;

 private:
  std::string former_;
  std::string present_;
  std::vector<std::string_view> formerLines_;
  std::vector<std::string_view> presentLines_;
  std::vector<DifferenceRun> runs_;
  std::vector<TextChange> changes_;
};

// How many lines differ, without the rest.
std::size_t CountChangedLines(std::string_view former, std::string_view present, bool partOnly = false);

}  // namespace korvane
