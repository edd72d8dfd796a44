// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/IgnoreComments.h"

#include <algorithm>
#include <iterator>

#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kMark = "korvane:";
constexpr std::string_view kIgnore = "ignore";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kBetweenCodes = " \t,";

// Counts the lines of a text while going forward through it.
class LineCounter {
 public:
  explicit LineCounter(std::string_view bytes) : bytes_(bytes) {}

  int lineAt(std::size_t offset) {
    for (; at_ < offset; ++at_) {
      const char c = bytes_[at_];
      if (c == '\n' || (c == '\r' && bytes_.substr(at_ + 1, 1) != "\n")) ++line_;
    }
    return line_;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
  int line_ = 1;
};

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text;
}

// Where the comment begins in which the mark stands, if it does.
bool StandsInComment(std::string_view bytes, std::size_t mark) {
  const std::size_t before = mark == 0 ? std::string_view::npos : bytes.find_last_of("\r\n", mark - 1);
  const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
  const std::string_view line = bytes.substr(start, mark - start);
  return line.find(';') != std::string_view::npos || line.find("//") != std::string_view::npos;
}

}  // namespace

IgnoreComments::IgnoreComments(std::string_view bytes,
                               const std::function<std::vector<LineRange>()>& blocks) {
  LineCounter counter(bytes);
  for (std::size_t at = bytes.find(kMark); at != std::string_view::npos; at = bytes.find(kMark, at + 1)) {
    if (!StandsInComment(bytes, at)) continue;
    const std::size_t start = at + kMark.size();
    const std::size_t end = std::min(bytes.find_first_of("\r\n;", start), bytes.size());
    takeComment(bytes.substr(start, end - start), counter.lineAt(at));
  }
  if (!rangesOfCode_.empty()) coverBlocks(blocks());
}

void IgnoreComments::takeComment(std::string_view text, int line) {
  text = Trimmed(text, kBlanks);
  if (!BeginsWithIgnoringCase(text, kIgnore)) return;
  text.remove_prefix(kIgnore.size());
  while (!(text = Trimmed(text, kBetweenCodes)).empty()) {
    const std::size_t length = std::min(text.find_first_of(kBetweenCodes), text.size());
    rangesOfCode_[ToLowerAscii(text.substr(0, length))].push_back({line, line});
    text.remove_prefix(length);
  }
}

void IgnoreComments::coverBlocks(const std::vector<LineRange>& blocks) {
  std::map<int, int> lastOfFirst;
  for (const LineRange& block : blocks)
    lastOfFirst[block.first] = std::max(lastOfFirst[block.first], block.last);
  for (auto& [code, ranges] : rangesOfCode_) {
    int reached = 0;
    for (LineRange& range : ranges) {
      const auto block = lastOfFirst.find(range.first);
      reached = std::max({reached, range.last, block == lastOfFirst.end() ? 0 : block->second});
      range.last = reached;
    }
  }
}

bool IgnoreComments::silences(std::string_view code, int line) const {
  const auto found = rangesOfCode_.find(code);
  if (found == rangesOfCode_.end()) return false;
  const auto behind =
      std::upper_bound(found->second.begin(), found->second.end(), line,
                       [](int wanted, const LineRange& range) { return wanted < range.first; });
  return behind != found->second.begin() && line <= std::prev(behind)->last;
}

std::string IgnoreCommentFor(std::string_view code) {
  return std::string("; ").append(kMark).append(" ").append(kIgnore).append(" ").append(code);
}

}  // namespace korvane
