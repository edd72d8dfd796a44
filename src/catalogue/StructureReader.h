// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"

namespace korvane {

// Reads the text of one INI file as the game does: blocks in blocks, one End each, keys with values. Any
// bytes will do. Lines end at CR LF, LF or CR and are counted from 1, columns are bytes and counted from 1,
// offsets are bytes from the text's beginning. A line is a comment from ";" on, or from a "//" that begins a
// word. Words are separated by "=" and by all bytes up to the space character. All views are parts of the
// text that is read.

constexpr bool SeparatesWords(char byte) {
  return static_cast<unsigned char>(byte) <= ' ' || byte == '=';
}

struct TextPlace {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
  std::size_t offset = 0;
};

struct TextWord {
  std::string_view text;
  std::uint32_t column = 0;
};

// Takes the words off the front of a part of a line that holds no comment.
class WordReader {
 public:
  // `rest` begins at the column.
  WordReader(std::string_view rest, std::uint32_t column) : rest_(rest), column_(column) {}
  // The next word; its text is empty when there is none.
  TextWord next();

 private:
  std::string_view rest_;
  std::uint32_t column_;
};

struct BlockHeader {
  BlockTypeId type = kNoBlockType;
  TextPlace place;            // of the keyword
  TextWord keyword;           // as it stands in the text
  bool sign = false;          // "=" stands behind the keyword
  TextWord first;             // the first word behind it: the name of what stands for itself, the module
  TextWord second;            // the second one: another name, the module's tag
  std::string_view words;     // all that stands behind the keyword and its "=", without a comment
  std::uint32_t wordsColumn;  // where that begins
  std::uint32_t depth = 0;    // how many blocks it is in
  std::size_t lineOffset = 0;
};

struct BlockEnd {
  TextPlace place;         // of the End; of the line's beginning, or the text's end, when there is none
  bool closed = true;      // by an End; else by what cannot stand in it, or by the end of the text
  std::size_t behind = 0;  // offset of the first line that does not belong to the block
  std::uint32_t lastLine = 0;
};

struct KeyLine {
  TextPlace place;  // of the key
  TextWord key;     // as it stands in the text
  const KeyFacts* facts = nullptr;
  const BlockHeader* block = nullptr;  // nullptr outside of all blocks
  bool sign = false;                   // "=" stands behind the key
  std::string_view value;              // without blanks around it and without a comment
  std::uint32_t valueColumn = 0;
  WordReader words() const { return {value, valueColumn}; }
};

struct StructureFault {
  enum class Kind {
    openBlock,  // `open` are not closed before `text`, which cannot stand in them, or before the end (empty)
    strayEnd,   // an End while no block is open
    looseText,  // `text` stands outside of all blocks
  };

  Kind kind;
  TextPlace place;
  std::string_view text;                // the line without its comment
  std::span<const BlockHeader> open{};  // from the outermost of those that stay open without an End
  const BlockHeader* parent = nullptr;  // the block in which `text` may stand, if one is open
  bool follows = false;                 // comes most likely of an earlier fault
};

// Is told what the reader meets, in the order of the text. What it is told is valid during the call; headers
// until their block has ended.
class StructureSink {
 public:
  virtual ~StructureSink() = default;
  virtual void blockBegins(const BlockHeader& /*block*/) {}
  virtual void keyFound(const KeyLine& /*key*/) {}
  // Whether to be told of a line with such a key; who needs only a few is served faster.
  virtual bool wantsKey(const KeyFacts* /*facts*/) { return true; }
  virtual void blockEnds(const BlockHeader& /*block*/, const BlockEnd& /*end*/) {}
  virtual void faultFound(const StructureFault& /*fault*/) {}
  // Asked from time to time, and behind each block that stands in no other; false stops reading.
  virtual bool goesOn() { return true; }
};

// False when the sink stopped it. Blocks more than kDeepestBlock deep are taken for keys.
inline constexpr std::size_t kDeepestBlock = 16;
bool ReadStructure(std::string_view text, StructureSink& sink);

}  // namespace korvane
