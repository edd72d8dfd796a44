// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <utility>

#include "catalogue/GameStructure.h"

namespace korvane {

// Makes the structure from the tables. The tables belong to the program: a row that fits nothing is a
// std::logic_error.
class StructureMaker {
 public:
  static GameStructure make();

 private:
  // A place and a key in small letters.
  using KeyPlace = std::pair<BlockTypeId, std::string>;
  template <typename Row>
  using RowsOfKeys = std::multimap<KeyPlace, const Row*>;

  void addKinds();
  void addBlocks();
  void addTypesOfKeys();
  void addGeneralFacts();
  void addKeys();
  void setHeaders();
  void fillTables();

  SpaceId addSpace(std::string_view name);
  BlockTypeId addType(BlockType type);
  BlockTypeId typeAt(std::string_view path) const;
  BlockTypeId ensureType(const std::string& path);
  BlockType refined(const std::string& path, BlockTypeId parent, BlockTypeId general) const;
  KeyFacts& factsAt(BlockTypeId type, std::string_view key);
  void addKey(const KeyRow& row);
  void inherit(KeyFacts& facts, BlockTypeId from, std::string_view key, std::string_view module);
  std::span<const std::string_view> wordList(std::string_view words);

  GameStructure made_;
  std::map<std::string, BlockTypeId, std::less<>> byPath_;
  std::map<KeyPlace, KeyId> keyAt_;
  RowsOfKeys<ReferenceRow> references_;
  RowsOfKeys<WordsRow> words_;
  RowsOfKeys<LeadingRow> leading_;
  RowsOfKeys<OutsideRow> outside_;
  std::map<const char*, std::span<const std::string_view>> lists_;  // by where the row has the words
};

}  // namespace korvane
