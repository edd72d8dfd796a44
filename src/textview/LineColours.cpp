// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/LineColours.h"

#include <algorithm>
#include <cstddef>

namespace korvane {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";

std::size_t CommentStart(std::string_view line) {
  return std::min({line.find(';'), line.find("//"), line.size()});
}

bool IsEnd(std::string_view word) {
  constexpr std::string_view kEnd = "end";
  return std::equal(word.begin(), word.end(), kEnd.begin(), kEnd.end(),
                    [](char a, char b) { return (a | ' ') == b; });
}

void Fill(char* kinds, std::size_t from, std::size_t to, TextKind kind) {
  std::fill(kinds + from, kinds + to, static_cast<char>(kind));
}

// A statement begins at `start` and ends at `end`, before any comment.
void FillStatement(std::string_view line, std::size_t start, std::size_t end, char* kinds) {
  const std::size_t wordEnd = std::min(line.find_first_of(" \t=", start), end);
  if (IsEnd(line.substr(start, wordEnd - start))) {
    Fill(kinds, start, wordEnd, TextKind::end);
    Fill(kinds, wordEnd, end, TextKind::plain);
  } else if (start == 0) {
    Fill(kinds, 0, end, TextKind::header);
  } else {
    Fill(kinds, start, wordEnd, TextKind::key);
    Fill(kinds, wordEnd, end, TextKind::value);
  }
}

void FillLine(std::string_view line, char* kinds) {
  const std::size_t end = CommentStart(line);
  const std::size_t start = std::min(line.find_first_not_of(kBlanks), end);
  Fill(kinds, 0, start, TextKind::plain);
  if (start < end) FillStatement(line, start, end, kinds);
  Fill(kinds, end, line.size(), TextKind::comment);
}

}  // namespace

void KindsOf(std::string_view text, char* kinds) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
    const std::size_t next = std::min(text.find_first_not_of(kLineEnds, end), text.size());
    FillLine(text.substr(0, end), kinds);
    Fill(kinds, end, next, TextKind::plain);
    text.remove_prefix(next);
    kinds += next;
  }
}

}  // namespace korvane
