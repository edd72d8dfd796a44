// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/EditDistance.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>

namespace korvane {

namespace {

constexpr std::size_t kLongest = 128;  // longer words are never taken for misspelt ones

using Distances = std::array<std::size_t, kLongest + 1>;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsCapital(char c) {
  return c >= 'A' && c <= 'Z';
}

std::string WithoutDigits(std::string_view text) {
  std::string rest(text);
  rest.erase(std::remove_if(rest.begin(), rest.end(), IsDigit), rest.end());
  return rest;
}

bool DifferInLastCapital(std::string_view a, std::string_view b) {
  if (a.size() != b.size() || a.size() < 2 || !IsCapital(a.back()) || !IsCapital(b.back())) return false;
  a.remove_suffix(1);
  b.remove_suffix(1);
  return a == b && !IsCapital(a.back());
}

}  // namespace

std::size_t EditsBetween(std::string_view a, std::string_view b, std::size_t limit) {
  const std::size_t lengths = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (lengths > limit || std::max(a.size(), b.size()) > kLongest) return limit + 1;
  Distances before{};
  Distances last{};
  Distances now{};
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t least = now[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        now[j] = std::min(now[j], before[j - 2] + 1);
      least = std::min(least, now[j]);
    }
    if (least > limit) return limit + 1;
    before = last;
    last = now;
  }
  return std::min(last[b.size()], limit + 1);
}

std::size_t EditsAllowed(std::size_t length) {
  return length <= 3 ? 0 : length < 7 ? 1 : 2;
}

bool SameSeries(std::string_view a, std::string_view b) {
  return WithoutDigits(a) == WithoutDigits(b) || DifferInLastCapital(a, b);
}

}  // namespace korvane
