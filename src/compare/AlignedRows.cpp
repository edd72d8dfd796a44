// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/AlignedRows.h"

#include <algorithm>
#include <string_view>

#include "compare/LineDifference.h"

namespace korvane {

namespace {

constexpr std::size_t kLinesAround = 3;  // that stay in sight beside a change
constexpr std::size_t kLeastFold = 2;    // rows; fewer are not worth a fold

using State = AlignedRow::State;

std::string_view FirstWord(std::string_view line) {
  constexpr std::string_view kBlanks = " \t=";
  const std::size_t begin = std::min(line.find_first_not_of(kBlanks), line.size());
  return line.substr(begin, std::min(line.find_first_of(kBlanks, begin), line.size()) - begin);
}

std::vector<std::string_view> KeysOf(const std::vector<std::string_view>& lines, LineRange range) {
  std::vector<std::string_view> keys;
  for (std::size_t i = range.begin; i < range.begin + range.count; ++i) keys.push_back(FirstWord(lines[i]));
  return keys;
}

class Aligning {
 public:
  explicit Aligning(const ComparedTexts& texts) : texts_(texts) {}

  AlignedRows run() {
    const std::vector<DifferenceRun>& runs = texts_.runs();
    for (std::size_t i = 0; i < runs.size(); ++i) {
      if (runs[i].equal) {
        addEqual(runs[i], i > 0, i + 1 < runs.size());
      } else {
        addChange(runs[i]);
      }
    }
    return std::move(aligned_);
  }

 private:
  void addEqual(const DifferenceRun& run, bool changeBefore, bool changeBehind) {
    const std::size_t before = changeBefore ? std::min(kLinesAround, run.oldCount) : 0;
    const std::size_t behind = changeBehind ? std::min(kLinesAround, run.oldCount - before) : 0;
    const std::size_t middle = run.oldCount - before - behind;
    for (std::size_t i = 0; i < run.oldCount; ++i) {
      if (i == before && middle >= kLeastFold)
        aligned_.rows.push_back({State::fold, 0, 0, static_cast<std::uint32_t>(middle)});
      add(State::same, run.oldBegin + i + 1, run.newBegin + i + 1);
    }
  }

  void addChange(const DifferenceRun& run) {
    aligned_.changes.push_back(aligned_.rows.size());
    const auto former = KeysOf(texts_.formerLines(), {run.oldBegin, run.oldCount});
    const auto present = KeysOf(texts_.presentLines(), {run.newBegin, run.newCount});
    for (const DifferenceRun& part : CompareLines(former, present)) {
      for (std::size_t i = 0; i < std::max(part.oldCount, part.newCount); ++i) {
        const std::size_t before = i < part.oldCount ? run.oldBegin + part.oldBegin + i + 1 : 0;
        const std::size_t now = i < part.newCount ? run.newBegin + part.newBegin + i + 1 : 0;
        add(before == 0 ? State::added : now == 0 ? State::removed : State::changed, before, now);
      }
    }
  }

  void add(State state, std::size_t former, std::size_t present) {
    aligned_.rows.push_back(
        {state, static_cast<std::uint32_t>(former), static_cast<std::uint32_t>(present), 0});
  }

  const ComparedTexts& texts_;
  AlignedRows aligned_;
};

}  // namespace

AlignedRows AlignRows(const ComparedTexts& texts) {
  return Aligning(texts).run();
}

}  // namespace korvane
