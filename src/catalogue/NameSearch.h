// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <limits>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/NameMatcher.h"

namespace korvane {

struct NameSearch {
  std::string_view pattern;     // see NameMatcher
  std::vector<KindId> kinds{};  // only these; empty: all
  std::size_t most = std::numeric_limits<std::size_t>::max();
};

struct NameHit {
  FoundDefinition definition;
  MatchRank rank = MatchRank::exact;
  bool inLastWord = false;  // the word that says what a thing is: "Crusader" in AmericaTankCrusader
};

struct NameHits {
  std::vector<NameHit> hits;  // the best `most`
  std::size_t all = 0;        // how many there are
};

// The definitions whose names fit. First those with exactly this name; of the others objects, then the other
// kinds with a window of their own; within these the better ranks, those that fit in their last word, shorter
// names, and at last the alphabet and the files.
NameHits SearchNames(const Catalogue& catalogue, const NameSearch& search);

}  // namespace korvane
