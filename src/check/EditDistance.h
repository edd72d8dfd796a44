// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

// How many letters must be put in, left out, replaced or swapped with their neighbour to make one text of the
// other, letter case significant. What is more than `limit` gives limit + 1.
std::size_t EditsBetween(std::string_view a, std::string_view b, std::size_t limit);

// How many edits a word of this length may be away from what was most likely meant: none for up to three
// letters, one for up to six, else two.
std::size_t EditsAllowed(std::size_t length);

// True for two members of a series (RotateX and RotateZ, Tire01 and Tire2): neither is the other misspelt.
bool SameSeries(std::string_view a, std::string_view b);

}  // namespace korvane
