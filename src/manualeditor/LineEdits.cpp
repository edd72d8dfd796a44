// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/LineEdits.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace korvane {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";
constexpr char kComment = ';';

using LineEdit = std::function<std::string(std::string_view line)>;

std::string EachLine(std::string_view lines, const LineEdit& edit) {
  std::string result;
  while (true) {
    const std::size_t end = std::min(lines.find_first_of(kLineEnds), lines.size());
    result += edit(lines.substr(0, end));
    if (end == lines.size()) return result;
    const std::size_t size = lines.substr(end, 2) == "\r\n" ? 2 : 1;
    result += lines.substr(end, size);
    lines.remove_prefix(end + size);
  }
}

void ForEachLine(std::string_view lines, const std::function<void(std::string_view)>& look) {
  EachLine(lines, [&look](std::string_view line) {
    look(line);
    return std::string();
  });
}

// Where the line's first word begins; nothing for an empty line.
std::optional<std::size_t> StartOf(std::string_view line) {
  const std::size_t start = line.find_first_not_of(kBlanks);
  return start == std::string_view::npos ? std::nullopt : std::optional(start);
}

std::string Uncommented(std::string_view line) {
  std::string result(line);
  if (const auto start = StartOf(line)) result.erase(*start, 1);
  return result;
}

// The columns that a text takes from the start of a line on; UTF-8's later bytes take none.
std::size_t Columns(std::string_view text, std::size_t tabWidth) {
  std::size_t columns = 0;
  for (const char c : text) {
    if (c == '\t') {
      columns += tabWidth - columns % tabWidth;
    } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) {
      ++columns;
    }
  }
  return columns;
}

// The key with the blanks before it, when the line is a key, "=" and a value.
std::optional<std::string_view> KeyOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  const std::size_t comment = std::min(line.find(kComment), line.find("//"));
  if (equals == std::string_view::npos || comment < equals) return std::nullopt;
  const std::size_t last = line.substr(0, equals).find_last_not_of(kBlanks);
  if (last == std::string_view::npos) return std::nullopt;
  return line.substr(0, last + 1);
}

}  // namespace

std::string CommentToggled(std::string_view lines) {
  bool allComments = true;
  std::size_t indent = std::string_view::npos;
  ForEachLine(lines, [&](std::string_view line) {
    const auto start = StartOf(line);
    if (!start) return;
    allComments = allComments && line[*start] == kComment;
    indent = std::min(indent, *start);
  });
  if (indent == std::string_view::npos) return std::string(lines);
  if (allComments) return EachLine(lines, Uncommented);
  return EachLine(lines, [indent](std::string_view line) {
    std::string result(line);
    if (StartOf(line)) result.insert(indent, 1, kComment);
    return result;
  });
}

std::string_view IndentOf(std::string_view text) {
  int tabs = 0;
  ForEachLine(text, [&tabs](std::string_view line) {
    if (!line.empty() && StartOf(line)) tabs += line[0] == '\t' ? 1 : line[0] == ' ' ? -1 : 0;
  });
  return tabs > 0 ? "\t" : "  ";
}

std::string Indented(std::string_view lines, std::string_view indent) {
  return EachLine(lines, [indent](std::string_view line) {
    return StartOf(line) ? std::string(indent) + std::string(line) : std::string(line);
  });
}

std::string Outdented(std::string_view lines, std::string_view indent, std::size_t tabWidth) {
  const std::size_t most = indent == "\t" ? tabWidth : indent.size();
  return EachLine(lines, [most](std::string_view line) {
    if (line.starts_with('\t')) return std::string(line.substr(1));
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    return std::string(line.substr(std::min(blanks, most)));
  });
}

std::string Trimmed(std::string_view lines) {
  return EachLine(lines, [](std::string_view line) {
    return std::string(line.substr(0, line.find_last_not_of(kBlanks) + 1));
  });
}

std::string Aligned(std::string_view lines, std::size_t tabWidth) {
  std::size_t widest = 0;
  ForEachLine(lines, [&](std::string_view line) {
    if (const auto key = KeyOf(line)) widest = std::max(widest, Columns(*key, tabWidth));
  });
  return EachLine(lines, [&](std::string_view line) {
    const auto key = KeyOf(line);
    if (!key) return std::string(line);
    const std::string padding(widest + 1 - Columns(*key, tabWidth), ' ');
    return std::string(*key) + padding + std::string(line.substr(line.find('=')));
  });
}

}  // namespace korvane
