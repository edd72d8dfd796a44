// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/StructureReader.h"

namespace korvane {

// One block as it is compared: what its keys say, whatever their order, spacing and comments. Texts are the
// file's bytes; views are parts of the text that was read.
struct ComparedBlock {
  struct Key {
    std::string_view key;    // as it is spelt
    std::string_view words;  // what follows it, as it stands there
    std::uint32_t line = 0;  // from 1

    // The words with one space between them.
    std::string value() const;
  };

  std::string identity;    // tells it from others in the block around: "Behavior ModuleTag_04"
  std::string value;       // what else its header says: the module of "Behavior = AutoHeal ModuleTag_04"
  std::uint32_t line = 0;  // of its header
  std::vector<Key> keys;
  std::vector<ComparedBlock> blocks;
};

// What one key was and is; an absent value means that the key is not there. A block inside the item counts as
// a key with what its header says.
struct KeyChange {
  std::string key;  // "Behavior ModuleTag_04 / HealingAmount"
  std::optional<std::string> former;
  std::optional<std::string> present;
  std::uint32_t formerLine = 0;  // where it stands or stood, from 1; of an absent value 0
  std::uint32_t presentLine = 0;

  bool operator==(const KeyChange&) const = default;
};

// Reads the text of one item, whose first line has this number. The text must stay.
ComparedBlock ReadBlock(std::string_view itemText, std::uint32_t firstLine);

// Letter case counts in values only. Of keys that occur several times those with the same value belong
// together, then those whose values begin with the same word, then the others in their order; of blocks with
// the same identity those that say the same, then those that begin with the same key and value. In the order
// of the present block; what is gone comes behind what is there.
std::vector<KeyChange> CompareBlocks(const ComparedBlock& former, const ComparedBlock& present);

// The value of the item's own key, or nothing.
std::optional<std::string> ValueOf(const ComparedBlock& block, std::string_view key);

// The words that are left, with one blank between two.
std::string Joined(WordReader words);

}  // namespace korvane
