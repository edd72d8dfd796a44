// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/LineDifference.h"

#include <cstdint>
#include <unordered_map>

#include "catalogue/LineCutter.h"

namespace korvane {

namespace {

constexpr std::size_t kLongestComparedLine = 4096;  // a longer one differs as a whole

// Gives equal texts the same number.
class Numbers {
 public:
  std::vector<std::uint32_t> of(const std::vector<std::string_view>& texts) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(texts.size());
    for (const std::string_view text : texts)
      numbers.push_back(
          numbers_.try_emplace(text, static_cast<std::uint32_t>(numbers_.size())).first->second);
    return numbers;
  }

 private:
  std::unordered_map<std::string_view, std::uint32_t> numbers_;
};

enum class Sort { blank, word, mark };

Sort SortOf(char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (byte <= ' ') return Sort::blank;
  const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte >= 0x80;
  return letter || (byte >= '0' && byte <= '9') || c == '_' || c == '.' || c == '-' ? Sort::word : Sort::mark;
}

std::vector<std::string_view> WordsOf(std::string_view line) {
  std::vector<std::string_view> words;
  while (!line.empty()) {
    const Sort sort = SortOf(line.front());
    std::size_t size = 1;
    while (sort != Sort::mark && size < line.size() && SortOf(line[size]) == sort) ++size;
    words.push_back(line.substr(0, size));
    line.remove_prefix(size);
  }
  return words;
}

bool IsBlank(std::string_view words) {
  return words.find_first_not_of(" \t") == std::string_view::npos;
}

// Parts with nothing but blanks between them are one.
void AddPart(std::vector<LinePart>& parts, std::string_view line, std::size_t begin, std::size_t end) {
  if (begin == end) return;
  if (!parts.empty()) {
    const std::size_t behind = parts.back().begin + parts.back().size;
    if (IsBlank(line.substr(behind, begin - behind))) {
      parts.back().size = end - parts.back().begin;
      return;
    }
  }
  parts.push_back({begin, end - begin});
}

// Goes through a line word by word.
class Ruler {
 public:
  explicit Ruler(const std::vector<std::string_view>& words) : words_(words) {}
  std::size_t at() const { return at_; }
  void pass(std::size_t count) {
    for (; count > 0; --count) at_ += words_[next_++].size();
  }

 private:
  const std::vector<std::string_view>& words_;
  std::size_t next_ = 0;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  LineCutter cutter(text);
  for (std::string_view line; cutter.next(line);) lines.push_back(line);
  return lines;
}

std::vector<DifferenceRun> CompareLines(const std::vector<std::string_view>& former,
                                        const std::vector<std::string_view>& present) {
  Numbers numbers;
  const std::vector<std::uint32_t> before = numbers.of(former);
  return CompareSequences(before, numbers.of(present));
}

WordDifference CompareWords(std::string_view former, std::string_view present) {
  if (former.size() > kLongestComparedLine || present.size() > kLongestComparedLine)
    return {{{0, former.size()}}, {{0, present.size()}}};
  const std::vector<std::string_view> before = WordsOf(former);
  const std::vector<std::string_view> now = WordsOf(present);
  Ruler oldRuler(before);
  Ruler newRuler(now);
  WordDifference difference;
  for (const DifferenceRun& run : CompareLines(before, now)) {
    const std::size_t oldBegin = oldRuler.at();
    const std::size_t newBegin = newRuler.at();
    oldRuler.pass(run.oldCount);
    newRuler.pass(run.newCount);
    if (run.equal) continue;
    AddPart(difference.former, former, oldBegin, oldRuler.at());
    AddPart(difference.present, present, newBegin, newRuler.at());
  }
  return difference;
}

}  // namespace korvane
