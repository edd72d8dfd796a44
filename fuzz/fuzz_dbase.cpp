// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a table and its memo file: the table's length (two bytes, little-endian), the table, the
// memos.
#include <algorithm>

#include "FuzzFolder.h"
#include "stock/BinaryNumbers.h"
#include "stock/StockFiles.h"

namespace {

using namespace korvane;

constexpr int kFields = 4;  // more are like these

// True when the current record's value could be read.
bool Reads(DBCtl& database, int field) {
  try {
    database.GetData(field);
    return true;
  } catch (const DatabaseError&) {
    return false;
  }
}

void ReadFields(DBCtl& database) {
  for (int field = -1; field < kFields; ++field) Reads(database, field);
}

// What is stored is what is read, in this record and in no other.
void StoreAndReadBack(DBCtl& database, int field, const std::string& text) {
  try {
    database.SetData(field, text);
  } catch (const DatabaseError&) {
    return;  // it does not fit into the field
  }
  Require(database.GetData(field) == text);
}

void Walk(DBCtl& database) {
  std::int64_t walked = 0;
  for (; !database.AtEnd(); database.MoveNext()) {
    Require(database.RecordPosition() == walked++);
    ReadFields(database);
  }
  Require(database.RecordCount() == walked);
  database.SetRecord(walked / 2);
  Require(database.RecordPosition() == walked / 2);
  database.SetRecord(0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  if (size < 2) return 0;
  const std::size_t tableSize = std::min<std::size_t>(Little16(input, 0), size - 2);
  folder.write("Data.DBF", input.substr(2, tableSize));
  folder.write("Data.DBT", input.substr(2 + tableSize));
  DBCtl database(StoreBytes);
  try {
    database.LoadDatabase(folder.path(), "Data");
    Walk(database);
    for (int field = 0; field < kFields; ++field) StoreAndReadBack(database, field, "123");
  } catch (const DatabaseError&) {  // the promised answer to damage
  }
  return 0;
}
