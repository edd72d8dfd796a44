// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/NumberForm.h"

#include <algorithm>

namespace korvane {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool TakeOneOf(std::string_view& text, std::string_view bytes) {
  if (text.empty() || bytes.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

bool TakeDigits(std::string_view& text) {
  const auto digits = std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin();
  text.remove_prefix(static_cast<std::size_t>(digits));
  return digits > 0;
}

std::string_view WithoutLabel(std::string_view word) {
  const auto letters =
      static_cast<std::size_t>(std::find_if_not(word.begin(), word.end(), IsLetter) - word.begin());
  const bool labelled = letters > 0 && letters < word.size() && word[letters] == ':';
  return labelled ? word.substr(letters + 1) : word;
}

bool IsNumber(std::string_view text) {
  TakeOneOf(text, "+-");
  const bool whole = TakeDigits(text);
  const bool fraction = TakeOneOf(text, ".") && TakeDigits(text);
  if (!whole && !fraction) return false;
  if (TakeOneOf(text, "eE")) {
    TakeOneOf(text, "+-");
    if (!TakeDigits(text)) return false;
  }
  TakeOneOf(text, "%fF");
  return text.empty();
}

}  // namespace

bool IsMisshapenNumber(std::string_view word) {
  const std::string_view number = WithoutLabel(word);
  return std::any_of(number.begin(), number.end(), IsDigit) && !IsNumber(number);
}

}  // namespace korvane
