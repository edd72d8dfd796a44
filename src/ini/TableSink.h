// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// The caption and the value of a row that stands for a line.
inline constexpr std::string_view kSeparatorCaption = "----------------------------------------";
inline constexpr std::string_view kSeparatorValue = "--------------------";

enum class EditKind { none = 0, typed = 1, choice = 2 };

// The choices of one row, in their order. Shared: twelve rows that offer the same 1,600 names hold them once.
using ChoiceList = std::shared_ptr<const std::vector<std::string>>;

// What a table of parameters takes: rows of a caption (column 0) and a value (column 1).
class TableSink {
 public:
  virtual ~TableSink() = default;

  virtual void clearRows() = 0;
  // Announces a fill of many rows.
  virtual void prepare() = 0;
  // Column 0 starts a new row with the text as its caption; column 1 gives the newest row its value.
  virtual void addCell(std::string_view text, int column, EditKind kind = EditKind::none) = 0;
  // The choices of the newest row.
  virtual void addChoices(ChoiceList choices) = 0;
};

}  // namespace korvane
