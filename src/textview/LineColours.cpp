// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/LineColours.h"

#include <algorithm>
#include <cstddef>

namespace korvane {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// Where the first byte of a kind stands from `at` on, or the text's size. Each is but a few bytes away.
template <typename Is>
std::size_t FindFrom(std::string_view text, std::size_t at, Is is) {
  while (at < text.size() && !is(text[at])) ++at;
  return at;
}

std::size_t CommentStart(std::string_view line) {
  const std::size_t end = std::min(line.find(';'), line.size());
  for (std::size_t at = line.find('/'); at < end; at = line.find('/', at + 1))
    if (line.substr(at).starts_with("//")) return at;
  return end;
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
  const std::size_t wordEnd =
      FindFrom(line.substr(0, end), start, [](char c) { return IsBlank(c) || c == '='; });
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
  const std::size_t start = FindFrom(line.substr(0, end), 0, [](char c) { return !IsBlank(c); });
  Fill(kinds, 0, start, TextKind::plain);
  if (start < end) FillStatement(line, start, end, kinds);
  Fill(kinds, end, line.size(), TextKind::comment);
}

}  // namespace

void KindsOf(std::string_view text, char* kinds) {
  while (!text.empty()) {
    const std::size_t end = FindFrom(text, 0, IsLineEnd);
    const std::size_t next = FindFrom(text, end, [](char c) { return !IsLineEnd(c); });
    FillLine(text.substr(0, end), kinds);
    Fill(kinds, end, next, TextKind::plain);
    text.remove_prefix(next);
    kinds += next;
  }
}

}  // namespace korvane
