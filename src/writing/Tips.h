// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "writing/WritingPlace.h"

namespace korvane {

// What is told of a word to somebody who points at it. Texts are a file's bytes.

// What the key takes, as a sentence: "Takes a number.", "Takes Yes or No.".
std::string WhatItTakes(const KeyFacts& facts);

// A line of the files that has the key in such a block, without comment, and the header of the outermost
// block around it; the file of this path is looked at first. Nothing when no more than some MB have none.
struct KeyExample {
  std::string line;
  std::string header;
};
struct WantedExample {
  BlockTypeId block = kNoBlockType;
  std::string_view key;
  std::string_view path{};
  std::string_view notIn{};
};
std::optional<KeyExample> ExampleOf(const Catalogue& catalogue, const WantedExample& wanted);

// The first lines in the block that say something, without the blanks around them and without comments.
std::vector<std::string> FirstLines(std::string_view block, std::size_t most);
// The same of a block in a file, as the file is now.
std::vector<std::string> FirstLinesOf(const FoundDefinition& item, std::size_t most);

}  // namespace korvane
