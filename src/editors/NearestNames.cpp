// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/NearestNames.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "check/EditDistance.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr qsizetype kMost = 3;

}  // namespace

QStringList NearestNames(const QString& name, const QStringList& names) {
  const std::string sought = ToBytes(name.toCaseFolded());
  const std::size_t allowed = EditsAllowed(sought.size());
  std::vector<std::pair<std::size_t, QString>> near;
  for (const QString& candidate : names) {
    const std::size_t edits = EditsBetween(sought, ToBytes(candidate.toCaseFolded()), allowed);
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
