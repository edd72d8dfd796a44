// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

// What made-up game files are made of. Nothing is left to chance: the same call gives the same answer.

template <std::size_t N>
constexpr std::string_view Pick(const std::array<std::string_view, N>& of, int index) {
  return of[static_cast<std::size_t>(index) % N];
}

// Five digits at least, so that no name begins with another one.
std::string Numbered(std::string_view stem, int index);

// A number that looks like any between low and high, always the same for the same seed.
int Between(int low, int high, int seed);

// How many of so many things the one of the number index has, when they are dealt out to so many.
int Share(int things, int among, int index);

}  // namespace korvane
