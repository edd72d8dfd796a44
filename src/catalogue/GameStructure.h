// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/Tables.h"

namespace korvane {

// The game's own block structure: which blocks stand in which, which keys they have, and which values name
// which kind of item. Made once from the tables; look-ups ignore letter case.

// A kind of block that stands for itself (Object, Weapon ...): its row in KindRows().
using KindId = std::uint8_t;
inline constexpr KindId kNoKind = 255;

// A space of names. Mostly a kind has one of its own; sounds of all kinds share one ("Audio").
using SpaceId = std::uint8_t;
inline constexpr SpaceId kNoSpace = 255;

// A place in the structure, as precise as the tables know it: "Object/Draw=W3DTankDraw/ConditionState".
using BlockTypeId = std::uint16_t;
inline constexpr BlockTypeId kOutsideBlocks = 0;  // where the kinds stand
inline constexpr BlockTypeId kNoBlockType = 65535;

using KeyId = std::uint16_t;
inline constexpr KeyId kNoKey = 65535;

enum class ValueType : std::uint8_t { unknown, word, name, number, labelled };
enum class Repeat : std::uint8_t { unknown, once, many };
enum class Outside : std::uint8_t { none, animation, bone, file, label, model, sound, texture, window };
enum class Again : std::uint8_t { nothing, warning, error };

// Where in a value a name stands.
struct Reference {
  SpaceId space = kNoSpace;
  std::uint8_t first = 0;    // the word, counted from 1; 0 when a label leads to it
  bool more = false;         // all words behind it too
  std::string_view label{};  // with its colon: the name follows the label in the same word or in the next
};

// The words of which one stands there.
struct LeadingWords {
  std::uint8_t position = 0;  // in the value, counted from 1
  std::span<const std::string_view> words{};
};

// What is known of a key at a place.
struct KeyFacts {
  std::string_view key;  // as the table spells it
  KeyId id = kNoKey;
  bool known = false;   // listed at exactly this place; else only what holds for places like it
  bool common = false;  // met often enough to take a similar key for a misspelling of it
  bool form = false;    // values that are no well-formed numbers are misshapen
  ValueType type = ValueType::unknown;
  std::uint8_t numbers = 0;  // how many numbers the value has
  Repeat repeat = Repeat::unknown;
  Outside outside = Outside::none;
  std::vector<Reference> references{};
  std::span<const std::string_view> words{};  // the closed list of its words; empty: there is none
  std::vector<LeadingWords> leading{};
};

struct BlockType {
  std::string path{};          // see Tables.h; empty outside of all blocks
  std::string_view keyword{};  // the last part of the path, without a module
  std::string_view module{};   // "*" stands for modules that are not listed; empty: it has none
  BlockTypeId parent = kNoBlockType;
  BlockTypeId general = kNoBlockType;  // where to look for what is not listed here
  KindId kind = kNoKind;               // of a block that stands for itself
  bool signAllowed = false;            // "=" may follow the keyword
  bool moduleFollows = false;          // the first word of the header is a module
  std::uint8_t fewestWords = 0;        // in the header, behind the keyword
  std::uint8_t mostWords = 0;          // 255: any number
};

struct Kind {
  std::string_view name;
  std::uint8_t names = 0;  // in the header
  SpaceId space = kNoSpace;
  Again again = Again::nothing;
  bool editor = false;  // the program has a window of its own for such items
  BlockTypeId type = kNoBlockType;
};

// What a word means as the first one of a line: it may open a block, or it is a key.
struct WordMeaning {
  BlockTypeId child = kNoBlockType;
  const KeyFacts* key = nullptr;
};

class GameStructure {
 public:
  static const GameStructure& get();

  std::span<const Kind> kinds() const { return kinds_; }
  KindId kind(std::string_view name) const;  // kNoKind when there is none
  std::span<const std::string_view> spaces() const { return spaces_; }
  SpaceId space(std::string_view name) const;  // by its own name or by that of a kind; kNoSpace
  // The kind after which a space is named, or the first of those that share it.
  KindId kindOfSpace(SpaceId space) const;
  // A word that stands where a name of the space is expected and is none (None, NoSound ...).
  bool isSpecial(std::string_view word, SpaceId space) const;
  std::vector<std::string_view> specialWords(SpaceId space) const;

  std::span<const BlockType> types() const { return types_; }
  const BlockType& type(BlockTypeId type) const { return types_[type]; }
  WordMeaning meaning(BlockTypeId type, std::string_view word) const;
  // The block that the keyword opens in a block of this type, whatever its header looks like; kNoBlockType.
  BlockTypeId child(BlockTypeId parent, std::string_view keyword) const {
    return meaning(parent, keyword).child;
  }
  // The more precise type of a block whose header begins with this module.
  BlockTypeId withModule(BlockTypeId type, std::string_view module) const;

  // What is known of the key in such a block, or nullptr.
  const KeyFacts* key(BlockTypeId type, std::string_view key) const { return meaning(type, key).key; }
  const KeyFacts& key(KeyId id) const { return keys_[id]; }
  std::size_t keyCount() const { return keys_.size(); }
  // What is known of the block's own header ("<header>") or the module in it ("<module>"), or nullptr.
  const KeyFacts* header(BlockTypeId type) const { return headers_[type]; }

  // All that may stand in such a block, in the order of the tables: for lists that offer it.
  std::vector<const KeyFacts*> keysOf(BlockTypeId type) const;
  std::vector<BlockTypeId> childrenOf(BlockTypeId type) const;

 private:
  friend class StructureMaker;
  GameStructure() = default;

  struct Entry {
    std::string_view word;
    BlockTypeId scope = kNoBlockType;
    BlockTypeId child = kNoBlockType;
    KeyId key = kNoKey;
  };
  using Entries = std::vector<Entry>;  // a hash table, its size a power of two

  static std::size_t placeOf(const Entries& table, BlockTypeId scope, std::string_view word,
                             std::uint64_t hash);
  const Entry* entryOf(BlockTypeId scope, std::string_view word, std::uint64_t hash) const;

  std::vector<Kind> kinds_;
  std::vector<std::string_view> spaces_;
  std::vector<BlockType> types_;
  std::vector<const KeyFacts*> headers_;  // of each type
  std::deque<KeyFacts> keys_;
  std::deque<std::vector<std::string_view>> wordLists_;
  Entries words_;
  Entries modules_;  // child is the type with the module
  std::vector<std::pair<std::string_view, SpaceId>> special_;
};

}  // namespace korvane
