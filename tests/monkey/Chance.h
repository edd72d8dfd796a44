// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace korvane {

// Chance that is the same again for the same seed, on every machine.
class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}

  // 0 to `count` - 1; 0 where there is nothing to choose from.
  int below(int count) { return count > 0 ? static_cast<int>(engine_() % static_cast<unsigned>(count)) : 0; }
  bool oneIn(int count) { return below(count) == 0; }

  template <typename List>
  auto& oneOf(List& list) {
    return list[static_cast<decltype(list.size())>(below(static_cast<int>(list.size())))];
  }

  std::string bytes(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>(below(256));
    return text;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace korvane
