// SPDX-License-Identifier: GPL-3.0-or-later
#include "GeneratedText.h"

#include <algorithm>

namespace korvane {

std::string Numbered(std::string_view stem, int index) {
  const std::string digits = std::to_string(index);
  return std::string(stem) + std::string(5 - std::min<std::size_t>(5, digits.size()), '0') + digits;
}

int Between(int low, int high, int seed) {
  const unsigned mixed = (static_cast<unsigned>(seed) + 1U) * 2654435761U;
  return low + static_cast<int>((mixed >> 8) % static_cast<unsigned>(high - low + 1));
}

int Share(int things, int among, int index) {
  return static_cast<int>((index + 1LL) * things / among - static_cast<long long>(index) * things / among);
}

}  // namespace korvane
