// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/NearestNames.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace korvane {

namespace {

constexpr qsizetype kMost = 3;
constexpr qsizetype kLongest = 128;  // letters of a name that can be misspelt
constexpr int kLettersPerSlip = 4;

// How many letters must be put in, left out or replaced to make one text of the other.
int EditsBetween(const QString& a, const QString& b) {
  std::vector<int> last(static_cast<std::size_t>(b.size()) + 1);
  std::iota(last.begin(), last.end(), 0);
  for (qsizetype i = 0; i < a.size(); ++i) {
    int diagonal = std::exchange(last[0], static_cast<int>(i) + 1);
    for (std::size_t j = 1; j < last.size(); ++j) {
      const int replaced = diagonal + (a[i] == b[static_cast<qsizetype>(j) - 1] ? 0 : 1);
      diagonal = std::exchange(last[j], std::min({last[j] + 1, last[j - 1] + 1, replaced}));
    }
  }
  return last.back();
}

}  // namespace

QStringList NearestNames(const QString& name, const QStringList& names) {
  const QString sought = name.toCaseFolded();
  const int allowed = std::max(1, static_cast<int>(sought.size()) / kLettersPerSlip);
  std::vector<std::pair<int, QString>> near;
  for (const QString& candidate : names) {
    const bool comparable = std::max(candidate.size(), sought.size()) <= kLongest &&
                            std::abs(candidate.size() - sought.size()) <= allowed;
    const int edits = comparable ? EditsBetween(sought, candidate.toCaseFolded()) : allowed + 1;
    if (edits <= allowed) near.emplace_back(edits, candidate);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  QStringList found;
  for (const auto& [edits, candidate] : near) {
    if (found.size() < kMost && !found.contains(candidate)) found += candidate;
  }
  return found;
}

}  // namespace korvane
