// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/IniText.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  ForEachPiece(text, separator, [&](std::string_view piece) { pieces.push_back(piece); });
  return pieces;
}

std::string Join(const std::vector<std::string_view>& pieces, std::string_view separator) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += separator;
    text += pieces[i];
  }
  return text;
}

std::string_view TrimSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool BeginsWithIgnoringCase(std::string_view text, std::string_view lowerPrefix) {
  return text.size() >= lowerPrefix.size() &&
         std::equal(lowerPrefix.begin(), lowerPrefix.end(), text.begin(),
                    [](char wanted, char found) { return wanted == LowerAscii(found); });
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
  return lower;
}

std::optional<std::string_view> HeaderName(std::string_view line) {
  const std::size_t space = line.find(' ');
  if (space == std::string_view::npos) return std::nullopt;
  const std::string_view rest = line.substr(space + 1);
  return rest.substr(0, rest.find(' '));
}

std::string_view ExtractValue(std::string_view line) {
  if (line.starts_with(';')) line.remove_prefix(1);
  line = TrimSpaces(line.substr(0, line.find(';')));
  return line.substr(line.rfind(' ') + 1);  // without a space the whole line
}

}  // namespace korvane
