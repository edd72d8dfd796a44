// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/LineWords.h"

#include <algorithm>

#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kNoValue = "its line has no value behind \"=\", with a space between them";
constexpr std::string_view kCut = "only a part of the value in its line is shown";
constexpr std::string_view kComment = "what it shows stands in a comment";
constexpr std::string_view kNoPercentage = "its line has no percentage that is shown whole";
constexpr std::string_view kEmpty = "it is empty; a line is deleted in the manual editor";
constexpr std::string_view kNoWord = "what is typed is not one word of a line";
constexpr std::string_view kPercentWanted = "what is typed is not one percentage";
constexpr std::string_view kBlanks = " \t";

constexpr std::string_view kLineComment = "//";

bool IsQuotedWhole(std::string_view word) {
  return word.size() >= 2 && word.front() == '"' && word.back() == '"' && std::ranges::count(word, '"') == 2;
}

bool IsCutAtQuotes(std::string_view body, std::string_view word) {
  const auto quotes = std::ranges::count(body, '"');
  return quotes != 0 && !(quotes == 2 && IsQuotedWhole(word));
}

// What stands between the "=" and the word.
struct Labels {
  std::size_t count = 0;
  bool comment = false;
};
Labels LabelsIn(std::string_view text) {
  Labels labels;
  for (std::size_t at = text.find_first_not_of(kBlanks); at != std::string_view::npos;
       at = text.find_first_not_of(kBlanks, at)) {
    ++labels.count;
    labels.comment = labels.comment || text.substr(at).starts_with(kLineComment);
    at = std::min(text.find_first_of(kBlanks, at), text.size());
  }
  return labels;
}

}  // namespace

std::string_view KeyWord(std::string_view line) {
  line = TrimSpaces(line);
  return line.substr(0, line.find_first_of(" \t="));
}

ShownWord ShownValueWord(std::string_view line, std::size_t labels) {
  const std::string_view body = line.substr(0, line.find(';'));
  const std::string_view value = ExtractValue(line);
  ShownWord word{static_cast<std::size_t>(value.data() - line.data()), value.size(), {}};
  const std::size_t equals = body.find('=');
  if (value.find_first_of("=\t\n") != std::string_view::npos || equals >= word.at) {
    word.problem = kNoValue;
    return word;
  }
  const Labels before = LabelsIn(line.substr(equals + 1, word.at - equals - 1));
  if (before.comment || value.starts_with(kLineComment)) {
    word.problem = kComment;
  } else if (before.count > labels || IsCutAtQuotes(body, value)) {
    word.problem = kCut;
  }
  return word;
}

ShownWord ShownPercentage(std::string_view line) {
  const std::string_view body = line.substr(0, line.find(';'));
  const std::size_t sign = body.find('%');
  ShownWord word{.problem = kNoPercentage};
  if (sign == std::string_view::npos || line.find(';') != line.rfind(';')) return word;
  const std::size_t space = body.rfind(' ', sign);
  const std::size_t equals = body.find('=');
  if (space == std::string_view::npos || equals > space) return word;
  word.at = space + 1;
  word.length = sign - space;
  const bool wordIsPlain = body.substr(word.at, word.length).find_first_of("=\t") == std::string_view::npos;
  const bool isLast = body.find_first_not_of(kBlanks, sign + 1) == std::string_view::npos;
  const Labels before = LabelsIn(body.substr(equals + 1, space - equals));
  if (wordIsPlain && isLast && word.length > 1 && before.count == 1 && !before.comment) word.problem = {};
  return word;
}

std::string_view ProblemOfValue(std::string_view value) {
  if (TrimSpaces(value).empty()) return kEmpty;
  const auto partsWords = [](char byte) {
    return static_cast<unsigned char>(byte) <= ' ' || byte == ';' || byte == '=' || byte == '"';
  };
  if (std::ranges::any_of(value, partsWords) || value.starts_with(kLineComment)) return kNoWord;
  return {};
}

std::string_view ProblemOfPercentage(std::string_view value) {
  if (const std::string_view problem = ProblemOfValue(value); !problem.empty()) return problem;
  return value.size() > 1 && value.find('%') == value.size() - 1 ? std::string_view() : kPercentWanted;
}

}  // namespace korvane
