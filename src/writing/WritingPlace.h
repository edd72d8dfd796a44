// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"

namespace korvane {

// The place behind a text, for somebody who goes on writing there. All views are parts of that text.
struct WritingPlace {
  enum class Part {
    nothing,    // in a comment, in quotes, or behind a word of which nothing is known
    firstWord,  // of a line
    value,      // behind a key or behind the keyword of a block
  };

  Part part = Part::nothing;
  BlockTypeId block = kOutsideBlocks;         // the innermost one that is open
  std::vector<std::string_view> linesBefore;  // the first words of its own lines
  const KeyFacts* facts = nullptr;            // of the key or header whose value it is
  std::vector<std::string_view> wordsBefore;  // of the value
  std::string_view typed;                     // of the word at the place
};

// What is typed of a name, and what it would name.
struct TypedName {
  SpaceId space = kNoSpace;
  std::string_view typed;
};
// By each reference that the place may hold; none where no name is expected.
std::vector<TypedName> NamesAt(const WritingPlace& place);

// The key takes "Yes" or "No".
bool IsChoice(const KeyFacts& facts);

WritingPlace PlaceBehind(std::string_view text);

// The part of the text that decides about the place behind it: from the last header of a named block in the
// first column on, other than one in the last line; all of it when there is none.
std::string_view FromLastHeader(std::string_view text);

}  // namespace korvane
