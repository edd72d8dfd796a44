// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file with comments that silence the checker, held against a second way of reading them.
#include <map>
#include <set>

#include "FuzzFolder.h"
#include "catalogue/BlockTree.h"
#include "catalogue/LineCutter.h"
#include "check/IgnoreComments.h"
#include "ini/IniText.h"

namespace {

using namespace korvane;

using Lines = std::vector<std::string_view>;
using CodesOfLine = std::map<int, std::set<std::string>>;

Lines LinesOf(std::string_view text) {
  Lines lines;
  LineCutter cutter(text);
  for (std::string_view line; cutter.next(line);) lines.push_back(line);
  return lines;
}

// The words behind a mark, when they say "ignore".
std::set<std::string> CodesBehind(std::string_view text) {
  constexpr std::string_view kIgnore = "ignore";
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos || ToLowerAscii(text.substr(begin, kIgnore.size())) != kIgnore)
    return {};
  std::set<std::string> codes;
  std::string word;
  for (const char byte : std::string(text.substr(begin + kIgnore.size())) + ' ') {
    if (byte != ' ' && byte != '\t' && byte != ',') {
      word += byte;
    } else if (!word.empty()) {
      codes.insert(ToLowerAscii(std::exchange(word, {})));
    }
  }
  return codes;
}

CodesOfLine SlowCodes(const Lines& lines) {
  constexpr std::string_view kMark = "korvane:";
  CodesOfLine codes;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view line = lines[i];
    const std::size_t comment = std::min(line.find(';'), line.find("//"));
    for (std::size_t at = line.find(kMark); at != std::string_view::npos; at = line.find(kMark, at + 1)) {
      if (at < comment) continue;
      const std::string_view behind = line.substr(at + kMark.size());
      codes[static_cast<int>(i) + 1].merge(CodesBehind(behind.substr(0, behind.find(';'))));
    }
  }
  return codes;
}

std::vector<LineRange> BlocksOf(std::string_view text) {
  std::vector<LineRange> ranges;
  for (const TextBlock& block : ReadBlocks(text))
    ranges.push_back({static_cast<int>(block.firstLine), static_cast<int>(block.lastLine)});
  return ranges;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::vector<LineRange> blocks = BlocksOf(text);
  const IgnoreComments comments(text, [&] { return blocks; });
  const Lines lines = LinesOf(text);
  std::set<std::pair<std::string, int>> silenced;
  std::set<std::string> codes = {"duplicate"};
  for (const auto& [line, own] : SlowCodes(lines)) {
    for (const std::string& code : own) {
      codes.insert(code);
      silenced.emplace(code, line);
      for (const LineRange& block : blocks) {
        for (int i = block.first; block.first == line && i <= block.last; ++i) silenced.emplace(code, i);
      }
    }
  }
  for (const std::string& code : codes) {
    for (int line = 1; line <= static_cast<int>(lines.size()); ++line)
      Require(comments.silences(code, line) == silenced.contains({code, line}));
  }
  return 0;
}
