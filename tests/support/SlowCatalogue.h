// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class CatalogueFile;

// A second version of what is read out of an INI file, as plain as it can be and slow: it walks the tables'
// rows for every line. Both give lines of text: "define 3:8 Weapon Gun", "use 4:12 Audio Bang FireSound in
// Weapon Gun", "block 3-9 Weapon".
std::vector<std::string> SlowFacts(std::string_view text);
std::vector<std::string> FactsOf(const CatalogueFile& file);

}  // namespace korvane
