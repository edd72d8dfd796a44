// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/EditDistance.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>

namespace korvane {

namespace {

constexpr std::size_t kLongest = 128;  // longer words are never taken for misspelt ones

using Distances = std::array<std::size_t, kLongest + 2>;

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

// Only the cells next to the diagonal are looked at: all others need more edits than the limit.
std::size_t EditsBetween(std::string_view a, std::string_view b, std::size_t limit) {
  const std::size_t lengths = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  const std::size_t tooMany = limit + 1;
  if (lengths > limit || std::max(a.size(), b.size()) > kLongest) return tooMany;
  std::array<Distances, 3> rows;
  std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    const Distances& before = rows[(i + 1) % rows.size()];
    const Distances& last = rows[(i + 2) % rows.size()];
    Distances& now = rows[i % rows.size()];
    const std::size_t from = i > limit ? i - limit : 1;
    const std::size_t to = std::min(b.size(), i + limit);
    std::size_t least = now[from - 1] = from == 1 ? i : tooMany;
    for (std::size_t j = from; j <= to; ++j) {
      now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        now[j] = std::min(now[j], before[j - 2] + 1);
      least = std::min(least, now[j]);
    }
    if (least > limit) return tooMany;
    now[to + 1] = tooMany;
  }
  return std::min(rows[a.size() % rows.size()][b.size()], tooMany);
}

std::size_t EditsAllowed(std::size_t length) {
  return length <= 3 ? 0 : length < 7 ? 1 : 2;
}

bool SameSeries(std::string_view a, std::string_view b) {
  return WithoutDigits(a) == WithoutDigits(b) || DifferInLastCapital(a, b);
}

}  // namespace korvane
