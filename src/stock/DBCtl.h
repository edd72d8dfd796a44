// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "stock/DatabaseError.h"
#include "stock/RandomFile.h"

namespace korvane {

struct DbfField;
class DbfTable;

// Stores bytes as the whole new contents of the file at the program's path. Gives the reason of a failure, or
// nothing when the file is stored.
using ReplaceFile = std::function<std::string(std::string_view path, std::string_view bytes)>;

// The records of one dBASE table (version III or IV) and its memo file. Deleted records are skipped.
// A record is read where it lies when it becomes current, and a memo's text only when GetData asks for it.
// Every failure is a DatabaseError; after a failed LoadDatabase no table is open.
class DBCtl {
 public:
  // Without `replaceFile` every SetData fails.
  explicit DBCtl(ReplaceFile replaceFile = {});
  ~DBCtl();
  DBCtl(const DBCtl&) = delete;
  DBCtl& operator=(const DBCtl&) = delete;

  std::function<void()> RecordChange;  // after every MoveNext, MovePrevious and SetRecord

  // Opens the table `Filename` ("Data" stands for "Data.DBF" and "Data.DBT") in the folder `Path`, both in
  // the program's path text, and makes its first record current. A table without records fails. Takes time
  // for the header only, whatever the number of records.
  void LoadDatabase(std::string_view Path, std::string_view Filename);

  // One record on or back: at most to the places behind the last and before the first record, where there is
  // no current record. A further step fails. After a failure there is no current record either.
  void MoveNext();
  void MovePrevious();
  // To the record at the zero-based position; behind the last record when there are fewer.
  void SetRecord(std::int64_t Index);

  // The field's bytes in the current record, by zero-based index or by name (letter case ignored): a memo's
  // whole text, a number without blanks, any other field without the blanks at its end.
  std::string GetData(int Field);
  std::string GetData(std::string_view Field);
  // The same bytes; a memo's text comes in pieces, so that it is never in memory as a whole. When it turns
  // out to be damaged, pieces may have come before the failure.
  void GetData(int Field, const TakePiece& take);

  // Stores the field of the current record on the disk: the memo file first, then the table, each replaced
  // whole, so that a failure in between loses nothing. Both are held in memory meanwhile. If the files cannot
  // be opened again afterwards, no table is open.
  void SetData(int Field, std::string_view Data);
  void SetData(std::string_view Field, std::string_view Data);

  bool AtEnd() const;  // positioned behind the last record
  // Zero-based: -1 before the first record, RecordCount() behind the last.
  std::int64_t RecordPosition() const;
  // Counted at the first question after LoadDatabase, in one pass over the records' deletion marks.
  std::int64_t RecordCount();

  // The code page mark of the table (its language driver byte), 0 when it has none. GetData does not convert
  // anything by it: stock databases are in Windows-1252.
  std::uint8_t languageDriver() const;

 private:
  DbfTable& table() const;
  const std::string& currentRecord() const;
  void stepForward();
  void stepBack();
  void readCurrent();
  void arrive();
  void store(const DbfField& wanted, std::string_view data);
  void replace(const std::string& path, std::string_view bytes);

  ReplaceFile replaceFile_;
  std::unique_ptr<DbfTable> table_;
  std::int64_t row_ = -1;  // the place of the current record among the stored ones, deleted ones included
  std::int64_t position_ = -1;  // its place among the records
  std::string record_;          // its bytes, empty when there is none
  std::optional<std::int64_t> count_;
};

}  // namespace korvane
