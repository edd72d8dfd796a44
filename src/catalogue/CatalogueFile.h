// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"
#include "catalogue/SourceFiles.h"

namespace korvane {

// What one INI file defines and what it names. Never changes once it is made, so that threads may share it.
// Lines and columns are counted from 1, columns are bytes; texts are the file's bytes.
class CatalogueFile {
 public:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
  using NameId = std::uint32_t;  // in this file: of one spelling of a name in a space

  struct Block {
    BlockTypeId type = kNoBlockType;
    std::uint32_t parent = kNone;  // index of the block around it
    std::uint32_t firstLine = 0;
    std::uint32_t lastLine = 0;
    std::uint32_t column = 0;  // of its keyword
  };
  struct Definition {
    KindId kind = kNoKind;
    NameId name = kNone;
    std::uint32_t block = kNone;
    std::uint32_t column = 0;  // of the name, in the block's first line
  };
  struct Use {
    NameId name = kNone;
    std::uint32_t block = kNone;  // the innermost one that it stands in, or whose header it stands in
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    KeyId key = kNoKey;  // GameStructure::key() tells more of it
  };

  // Nothing when it was asked to stop.
  static std::shared_ptr<const CatalogueFile> read(SourceFile source, std::string_view text,
                                                   const std::stop_token& stop = {});

  const SourceFile& source() const { return source_; }

  // All in the order of the text.
  std::span<const Block> blocks() const { return blocks_; }
  std::span<const Definition> definitions() const { return definitions_; }
  std::span<const Use> uses() const { return uses_; }

  // The block's header without comment: "Object AmericaTankCrusader", "Behavior = PhysicsBehavior
  // ModuleTag_04".
  std::string_view header(std::uint32_t block) const;
  // The innermost block that has the line, its header and End included; kNone.
  std::uint32_t blockAt(std::uint32_t line) const;
  // The outermost block around this one.
  std::uint32_t outermost(std::uint32_t block) const;
  // The uses in a block and those inside of it.
  std::span<const Use> usesIn(std::uint32_t block) const;

  std::size_t nameCount() const { return names_.size(); }
  std::string_view name(NameId id) const { return textOf(names_[id].text); }
  SpaceId space(NameId id) const { return names_[id].space; }
  // The low bits of its FoldedHash.
  std::uint32_t hash(NameId id) const { return names_[id].hash; }
  // Indexes into definitions() and uses().
  std::span<const std::uint32_t> definitionsOf(NameId id) const { return definitionsOfNames_.of(id); }
  std::span<const std::uint32_t> usesOf(NameId id) const { return usesOfNames_.of(id); }
  // All spellings of the name that occur here, letter case ignored. kNoSpace means any space.
  std::vector<NameId> spellings(SpaceId space, std::string_view name) const;
  // The same for a name whose FoldedHash is at hand.
  std::vector<NameId> spellings(SpaceId space, std::string_view name, std::uint64_t hash) const;

 private:
  friend class CatalogueFileMaker;

  struct Text {
    std::uint32_t begin = 0;
    std::uint32_t size = 0;
  };
  struct Name {
    Text text;
    std::uint32_t hash = 0;
    SpaceId space = kNoSpace;
  };
  // Lists of indexes, one for each name, behind each other.
  struct Lists {
    std::vector<std::uint32_t> ends;
    std::vector<std::uint32_t> indexes;
    std::span<const std::uint32_t> of(NameId id) const {
      const std::uint32_t begin = id == 0 ? 0 : ends[id - 1];
      return std::span(indexes).subspan(begin, ends[id] - begin);
    }
  };

  std::string_view textOf(Text text) const { return std::string_view(texts_).substr(text.begin, text.size); }

  SourceFile source_;
  std::string texts_;
  std::vector<Block> blocks_;
  std::vector<Text> headers_;  // of the blocks
  std::vector<Definition> definitions_;
  std::vector<Use> uses_;
  std::vector<Name> names_;
  std::vector<NameId> slots_;  // a hash table of the names, its size a power of two
  Lists definitionsOfNames_;
  Lists usesOfNames_;
};

}  // namespace korvane
