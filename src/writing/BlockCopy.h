// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/BlockTree.h"
#include "catalogue/Catalogue.h"

namespace korvane {

// A copy of a block that stands for itself, behind the block and under another name.

// Why the block cannot be copied, as a sentence; empty when it can.
std::string WhyNoCopy(const TextBlock& block);

// The first word behind the keyword of the block's header.
std::string_view NameOf(const TextBlock& block);

struct NewName {
  std::string_view name;
  const TextBlock& copied;
  std::span<const TextBlock> blocks;  // of the text
  const Catalogue* catalogue;         // nullptr: other files are not known
  std::string_view path;              // of the text's own file, which the catalogue may know as it was
};
// Why the copy cannot have the name, as a sentence; empty when it can. A name must be new among its kind.
// Where a name is looked up, the first header counts that begins with it: the new one must neither be meant
// by another header of the text nor stand in for one behind it.
std::string WhyNotNamed(const NewName& name);

struct BlockCopy {
  std::string text;        // to be put behind the block
  std::size_t nameAt = 0;  // where the new name stands in it
};
BlockCopy CopyOf(std::string_view text, const TextBlock& block, std::string_view name);

// What a copy may want for its own, each once and in the order of the text.
struct OwnNames {
  std::vector<std::string> names;       // that have the block's name in them, or that no other block uses
  std::vector<std::string> moduleTags;  // of its modules
};
OwnNames OwnNamesIn(std::string_view text, const TextBlock& block, const Catalogue* catalogue);

}  // namespace korvane
