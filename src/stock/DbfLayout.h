// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "stock/MemoFile.h"
#include "stock/RandomFile.h"

namespace korvane {

// Where things lie in a table: a header of fixed size, a descriptor for each field, a mark, the records, and
// another mark.
constexpr std::size_t kDbfHeader = 32;
constexpr std::size_t kDbfLanguageDriver = 29;  // in the header
constexpr std::size_t kDbfDescriptor = 32;
constexpr std::size_t kDbfFieldType = 11;  // in the descriptor, behind the field's name
constexpr std::size_t kDbfFieldLength = 16;
constexpr char kDbfHeaderEnd = '\r';
constexpr char kDbfFileEnd = '\x1a';

struct DbfField {
  std::string name;
  char type;
  std::size_t offset;  // in the record, whose first byte is the deletion mark
  std::size_t length;

  bool isMemo() const { return type == 'M' || type == 'B' || type == 'G'; }
  bool isNumber() const { return type == 'N' || type == 'F'; }
};

// What the header of a dBASE table says.
struct DbfLayout {
  MemoKind memoKind;
  std::uint64_t recordCount;  // records that are really there
  std::uint64_t headerLength;
  std::uint64_t recordLength;
  std::uint8_t languageDriver;
  std::vector<DbfField> fields;
  std::string seal;  // of the pair (see PairSeal.h); empty where there is none
};

// Reads the header and checks it against the file's size. A header count beyond what the file can hold is
// lowered to that; any other inconsistency, and a record that is cut off, is a DatabaseError, and so is a
// version other than III and IV (noDriver).
DbfLayout ReadDbfLayout(RandomFile& file);

// Throws the DatabaseError of a damaged table. `what`: what is wrong with it.
[[noreturn]] void TableDamaged(const std::string& what);

}  // namespace korvane
