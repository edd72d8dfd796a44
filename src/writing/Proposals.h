// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"

namespace korvane {

// What somebody may be about to write.
struct Proposal {
  enum class Kind { key, block, end, name, word };

  std::string text;
  Kind kind = Kind::key;
  KindId item = kNoKind;  // of a name: what it names

  bool operator==(const Proposal&) const = default;
};

struct Proposals {
  std::size_t typed = 0;  // bytes at the end of the text whose place a proposal takes
  std::vector<Proposal> list{};
};

struct ItemName {
  KindId kind = kNoKind;
  std::string name;
};

// The names that may be proposed.
struct KnownNames {
  const Catalogue* catalogue = nullptr;  // nullptr: not read yet
  std::string_view path;                 // below the game folder, of the file whose text it is ...
  std::span<const ItemName> own;         // ... and what that text defines, in the place of the file's names
};

inline constexpr std::size_t kMostProposals = 200;

// The best proposals for the word that ends the text, in a file's bytes: first those that begin with what is
// typed, then those in which a word begins with it, which have it anywhere or which have the words'
// beginnings; within these by the alphabet. A list of words keeps its order as long as nothing is typed.
Proposals Propose(std::string_view text, const KnownNames& names, std::size_t most = kMostProposals);

}  // namespace korvane
