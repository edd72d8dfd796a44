// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "stock/DbfLayout.h"
#include "stock/MemoFile.h"
#include "stock/RandomFile.h"

namespace korvane {

// The stored records of a dBASE table, deleted ones included, by their zero-based place in the file.
// Whatever is wrong with the files is a DatabaseError.
class DbfTable {
 public:
  // The program's paths of the table and of its memo file, which is opened if a field needs it.
  DbfTable(std::string path, std::string memoPath);

  const DbfLayout& layout() const { return layout_; }
  std::int64_t records() const { return static_cast<std::int64_t>(layout_.recordCount); }
  const DbfField& field(std::int64_t index) const;
  const DbfField& field(std::string_view name) const;

  bool isDeleted(std::int64_t record);
  std::string record(std::int64_t record);

  // The value of a field in the bytes of a record.
  std::string value(const DbfField& field, std::string_view recordBytes);
  // The same, a memo's text in pieces.
  void value(const DbfField& field, std::string_view recordBytes, const TakePiece& take);

  const std::string& path() const { return path_; }
  const std::string& memoPath() const { return memoPath_; }
  // The whole memo file with one more text.
  MemoFile::Grown memoWithText(std::string_view text) { return memo_->withText(text); }
  // The whole table with other bytes in a record's field, which must be as long as the field.
  std::string withFieldBytes(const DbfField& field, std::int64_t record, std::string_view bytes);

  // Lets go of the files, so that others can take their places; reopen() then reads those.
  void close();
  void reopen();

 private:
  std::uint64_t offsetOf(std::int64_t record) const;

  std::string path_;
  std::string memoPath_;
  RandomFile file_;
  DbfLayout layout_;
  std::optional<MemoFile> memo_;
  std::int64_t marksFrom_ = 0;  // the records whose deletion marks are in marks_
  std::string marks_;
};

// The value as the field's bytes in a record; a memo's value is the number of its block. DatabaseError for a
// value that does not fit.
std::string FieldBytes(const DbfField& field, std::string_view value);

}  // namespace korvane
