// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

// What belongs together in two lists of things that go by one name. Either may be null, not both.
template <typename Thing>
using Pairs = std::vector<std::pair<const Thing*, const Thing*>>;

// Takes those out of both lists for which `mark` gives the same text, the first with the first.
template <typename Thing, typename Mark>
void PairBy(std::vector<const Thing*>& former, std::vector<const Thing*>& present, Mark mark,
            Pairs<Thing>& pairs) {
  if (former.empty() || present.empty()) return;
  std::map<std::string, std::deque<std::size_t>> waiting;
  for (std::size_t i = 0; i < former.size(); ++i) waiting[mark(*former[i])].push_back(i);
  for (const Thing*& each : present) {
    const auto place = waiting.find(mark(*each));
    if (place == waiting.end() || place->second.empty()) continue;
    const Thing*& other = former[place->second.front()];
    place->second.pop_front();
    pairs.emplace_back(std::exchange(other, nullptr), std::exchange(each, nullptr));
  }
  std::erase(former, nullptr);
  std::erase(present, nullptr);
}

// The others in their order, and at last those that have no partner.
template <typename Thing>
void PairRest(const std::vector<const Thing*>& former, const std::vector<const Thing*>& present,
              Pairs<Thing>& pairs) {
  for (std::size_t i = 0; i < former.size() || i < present.size(); ++i)
    pairs.emplace_back(i < former.size() ? former[i] : nullptr, i < present.size() ? present[i] : nullptr);
}

}  // namespace korvane
