// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/ComparedTexts.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "catalogue/StructureReader.h"
#include "compare/ComparedBlock.h"
#include "compare/LineDifference.h"

namespace korvane {

namespace {

constexpr std::string_view kArrow = " \xE2\x86\x92 ";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kMostKeys = 3;  // that a summary names

constexpr char kEndMark = '\x01';  // begins no header

using Key = ComparedBlock::Key;
using Lines = std::vector<std::string_view>;

// What the lines of a text say, in their order: keys and headers, and the blocks that stand for themselves.
class LineSink : public StructureSink {
 public:
  struct Block {
    std::uint32_t firstLine = 0;
    std::uint32_t lastLine = 0;
    std::string title;
    std::string end;  // what its End is compared by; empty: it has none
  };

  LineSink(std::string_view text, const std::vector<std::string_view>& lines) : lines_(lines) {
    ReadStructure(text, *this);
  }

  void blockBegins(const BlockHeader& block) override {
    std::string words = Joined(WordReader(block.words, block.wordsColumn));
    if (block.depth == 0) {
      std::string title(block.keyword.text);
      if (!words.empty()) title += ' ' + words;
      blocks_.push_back({block.place.line, 0, std::move(title), {}});
    } else {
      keys_.push_back({block.keyword.text, block.words, block.place.line});
    }
  }
  void blockEnds(const BlockHeader& block, const BlockEnd& end) override {
    if (block.depth > 0) return;
    blocks_.back().lastLine = end.lastLine;
    if (!end.closed) return;
    const std::string line(lines_[end.lastLine - 1]);
    blocks_.back().end = kEndMark + blocks_.back().title + kEndMark + line;
  }
  void keyFound(const KeyLine& key) override { keys_.push_back({key.key.text, key.value, key.place.line}); }

  const std::vector<Block>& blocks() const { return blocks_; }
  // The lines as they are compared: an End belongs to its block, or it would be taken for that of another.
  std::vector<std::string_view> compared(std::vector<std::string_view> lines) const {
    for (const Block& block : blocks_) {
      if (!block.end.empty()) lines[block.lastLine - 1] = block.end;
    }
    return lines;
  }
  std::vector<Key> keysIn(LineRange lines) const {
    const auto [first, last] = around(lines);
    const auto begin = std::ranges::lower_bound(keys_, first, {}, &Key::line);
    return {begin, std::ranges::upper_bound(keys_, last, {}, &Key::line)};
  }
  // The first that has one of the lines.
  const Block* blockAt(LineRange lines) const {
    const auto [first, last] = around(lines);
    const auto found = std::ranges::lower_bound(blocks_, first, {}, &Block::lastLine);
    return found == blocks_.end() || lines.count == 0 || found->firstLine > last ? nullptr : &*found;
  }
  std::size_t blocksBegunIn(LineRange lines) const {
    const auto [first, last] = around(lines);
    const auto begin = std::ranges::lower_bound(blocks_, first, {}, &Block::firstLine);
    return static_cast<std::size_t>(std::ranges::upper_bound(blocks_, last, {}, &Block::firstLine) - begin);
  }

 private:
  // The numbers of the first and the last line; no lines: the last is before the first.
  static std::pair<std::uint32_t, std::uint32_t> around(LineRange lines) {
    return {static_cast<std::uint32_t>(lines.begin + 1),
            static_cast<std::uint32_t>(lines.begin + lines.count)};
  }

  const std::vector<std::string_view>& lines_;
  std::vector<Key> keys_;
  std::vector<Block> blocks_;
};

std::string TextOf(const KeyChange& change) {
  const auto behind = [](const std::string& value) { return value.empty() ? value : ' ' + value; };
  if (!change.former) return change.key + behind(*change.present) + " added";
  if (!change.present) return change.key + behind(*change.former) + " removed";
  return change.key + behind(*change.former) + std::string(kArrow) +
         (change.present->empty() ? "(empty)" : *change.present);
}

// Of whole blocks that came or went.
std::string TextOf(std::size_t blocks, const char* what) {
  std::string text = what;
  if (blocks > 1) text += ", and " + std::to_string(blocks - 1) + " more";
  return text;
}

std::string SummaryOf(std::vector<Key> former, std::vector<Key> present) {
  ComparedBlock before;
  ComparedBlock now;
  before.keys = std::move(former);
  now.keys = std::move(present);
  const std::vector<KeyChange> changes = CompareBlocks(before, now);
  if (changes.empty()) return "spacing, order or comments";
  std::string text;
  for (std::size_t i = 0; i < changes.size() && i < kMostKeys; ++i)
    text += (i == 0 ? "" : ", ") + TextOf(changes[i]);
  if (changes.size() > kMostKeys) text += ", and " + std::to_string(changes.size() - kMostKeys) + " more";
  return text;
}

TextChange Described(const DifferenceRun& run, const LineSink& former, const LineSink& present) {
  TextChange change{{run.oldBegin, run.oldCount}, {run.newBegin, run.newCount}, {}, {}};
  const auto* block = present.blockAt(change.present);
  if (block == nullptr) block = former.blockAt(change.former);
  if (block != nullptr) change.block = block->title;
  const std::size_t came = present.blocksBegunIn(change.present);
  const std::size_t went = former.blocksBegunIn(change.former);
  if (came > 0 && run.oldCount == 0) {
    change.summary = TextOf(came, "added");
  } else if (went > 0 && run.newCount == 0) {
    change.summary = TextOf(went, "removed");
  } else {
    change.summary = SummaryOf(former.keysIn(change.former), present.keysIn(change.present));
  }
  return change;
}

// Where the lines begin and end in their text, the last one's line end included.
std::pair<std::size_t, std::size_t> BoundsOf(LineRange range, const std::string& text,
                                             const std::vector<std::string_view>& lines) {
  const auto beginOf = [&](std::size_t line) {
    return line < lines.size() ? static_cast<std::size_t>(lines[line].data() - text.data()) : text.size();
  };
  return {beginOf(range.begin), beginOf(range.begin + range.count)};
}

bool EndsLine(std::string_view text) {
  return text.empty() || text.back() == '\n' || text.back() == '\r';
}

// The lines of the blocks that the part has, where the whole text has them; else all lines.
LineRange PlaceOfPart(const LineSink& part, const LineSink& whole, std::size_t wholeCount) {
  const LineRange all{0, wholeCount};
  if (part.blocks().empty()) return all;
  const auto& blocks = whole.blocks();
  const auto first = std::ranges::find(blocks, part.blocks().front().title, &LineSink::Block::title);
  const auto last = std::find_if(first, blocks.end(), [&](const LineSink::Block& block) {
    return block.title == part.blocks().back().title;
  });
  return last == blocks.end() ? all : LineRange{first->firstLine - 1, last->lastLine + 1 - first->firstLine};
}

// Without what only the present text has at the ends.
void LeaveOutEnds(std::vector<DifferenceRun>& runs) {
  if (!runs.empty() && runs.front().oldCount == 0) runs.erase(runs.begin());
  if (!runs.empty() && runs.back().oldCount == 0) runs.pop_back();
}

void Add(std::vector<DifferenceRun>& runs, const DifferenceRun& run) {
  if (run.oldCount + run.newCount == 0) return;
  if (runs.empty() || runs.back().equal != run.equal) return runs.push_back(run);
  runs.back().oldCount += run.oldCount;
  runs.back().newCount += run.newCount;
}

// Lines are equal that stand at the ends of a change and say the same: Ends of blocks with other names.
std::vector<DifferenceRun> Sharpened(const std::vector<DifferenceRun>& runs, const Lines& former,
                                     const Lines& present) {
  std::vector<DifferenceRun> sharp;
  for (DifferenceRun run : runs) {
    const auto peel = [&](bool atEnd) {
      std::size_t count = 0;
      const std::size_t most = run.equal ? 0 : std::min(run.oldCount, run.newCount);
      const auto same = [&](std::size_t i) {
        return former[run.oldBegin + (atEnd ? run.oldCount - 1 - i : i)] ==
               present[run.newBegin + (atEnd ? run.newCount - 1 - i : i)];
      };
      while (count < most && same(count)) ++count;
      run.oldCount -= count;
      run.newCount -= count;
      return count;
    };
    const std::size_t begin = peel(false);
    Add(sharp, {true, run.oldBegin, begin, run.newBegin, begin});
    run.oldBegin += begin;
    run.newBegin += begin;
    const std::size_t end = peel(true);
    Add(sharp, run);
    Add(sharp, {true, run.oldBegin + run.oldCount, end, run.newBegin + run.newCount, end});
  }
  return sharp;
}

std::vector<DifferenceRun> RunsOf(const LineSink& before, const Lines& former, const LineSink& now,
                                  const Lines& present, bool partOnly) {
  const LineRange all{0, present.size()};
  const LineRange place = partOnly ? PlaceOfPart(before, now, present.size()) : all;
  const Lines compared = now.compared(present);
  const auto begin = compared.begin() + static_cast<std::ptrdiff_t>(place.begin);
  std::vector<DifferenceRun> runs =
      CompareLines(before.compared(former), {begin, begin + static_cast<std::ptrdiff_t>(place.count)});
  for (DifferenceRun& run : runs) run.newBegin += place.begin;
  if (partOnly && place == all) LeaveOutEnds(runs);
  return Sharpened(runs, former, present);
}

std::size_t LinesIn(const DifferenceRun& run) {
  return run.equal ? 0 : std::max(run.oldCount, run.newCount);
}

}  // namespace

ComparedTexts::ComparedTexts(std::string former, std::string present, bool partOnly)
    : former_(std::move(former)),
      present_(std::move(present)),
      formerLines_(LinesOf(former_)),
      presentLines_(LinesOf(present_)) {
  const LineSink before(former_, formerLines_);
  const LineSink now(present_, presentLines_);
  runs_ = RunsOf(before, formerLines_, now, presentLines_, partOnly);
  for (const DifferenceRun& run : runs_) {
    if (!run.equal) changes_.push_back(Described(run, before, now));
  }
}

std::size_t ComparedTexts::linesChanged() const {
  std::size_t count = 0;
  for (const DifferenceRun& run : runs_) count += LinesIn(run);
  return count;
}

std::string ComparedTexts::takenBack(const TextChange& change) const {
  const auto [oldBegin, oldEnd] = BoundsOf(change.former, former_, formerLines_);
  const auto [newBegin, newEnd] = BoundsOf(change.present, present_, presentLines_);
  std::string text = present_.substr(0, newBegin);
  if (!EndsLine(text) && oldEnd > oldBegin) text += kLineEnd;
  text.append(former_, oldBegin, oldEnd - oldBegin);
  if (!EndsLine(text) && newEnd < present_.size()) text += kLineEnd;
  return text.append(present_, newEnd);
}

const TextChange* ComparedTexts::find(const ComparedTexts& other, const TextChange& change) const {
  const auto sameLines = [](const std::vector<std::string_view>& a, LineRange inA,
                            const std::vector<std::string_view>& b, LineRange inB) {
    return inA.count == inB.count &&
           std::equal(a.begin() + static_cast<std::ptrdiff_t>(inA.begin),
                      a.begin() + static_cast<std::ptrdiff_t>(inA.begin + inA.count),
                      b.begin() + static_cast<std::ptrdiff_t>(inB.begin));
  };
  const auto found = std::ranges::find_if(changes_, [&](const TextChange& each) {
    return each.former == change.former &&
           sameLines(formerLines_, each.former, other.formerLines_, change.former) &&
           sameLines(presentLines_, each.present, other.presentLines_, change.present);
  });
  return found == changes_.end() ? nullptr : &*found;
}

std::size_t CountChangedLines(std::string_view former, std::string_view present, bool partOnly) {
  const Lines before = LinesOf(former);
  const Lines now = LinesOf(present);
  std::size_t count = 0;
  for (const DifferenceRun& run :
       RunsOf(LineSink(former, before), before, LineSink(present, now), now, partOnly)) {
    count += LinesIn(run);
  }
  return count;
}

}  // namespace korvane
