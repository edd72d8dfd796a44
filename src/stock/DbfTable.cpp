// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/DbfTable.h"

#include <algorithm>

#include "ini/IniText.h"
#include "stock/DatabaseError.h"

namespace korvane {

namespace {

constexpr char kLive = ' ';
constexpr char kDeleted = '*';
// Deletion marks are read with the records around them when a piece holds several records; of long records
// only the mark itself is read.
constexpr std::uint64_t kMarkPiece = 32 * 1024;
constexpr std::string_view kBlanks(" \0", 2);

[[noreturn]] void NoSuchField(const std::string& field) {
  throw DatabaseError(DatabaseFailure::noSuchField, "The database has no field " + field + ".");
}

std::string_view WithoutBlanksAtEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view WithoutBlanks(std::string_view text) {
  text = WithoutBlanksAtEnd(text);
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// An optional sign, digits and at most one point.
bool IsNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return std::any_of(text.begin(), text.end(), IsDigit) && std::count(text.begin(), text.end(), '.') <= 1 &&
         std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '.'; });
}

// Ten digits at most; no block when there are only blanks or zeros.
std::uint64_t BlockNumber(const DbfField& field, std::string_view text) {
  text = WithoutBlanks(text);
  if (text.size() > 10 || !std::all_of(text.begin(), text.end(), IsDigit)) {
    TableDamaged("the field " + field.name + " holds text where a number is due");
  }
  return text.empty() ? 0 : std::stoull(std::string(text));
}

}  // namespace

DbfTable::DbfTable(std::string path, std::string memoPath)
    : path_(std::move(path)), memoPath_(std::move(memoPath)) {
  reopen();
}

void DbfTable::reopen() {
  if (!file_.open(ProgramPath(path_))) {
    throw DatabaseError(DatabaseFailure::fileNotFound, "The database \"" + path_ + "\" cannot be opened.");
  }
  layout_ = ReadDbfLayout(file_);
  marks_.clear();
  const bool needsMemo =
      std::any_of(layout_.fields.begin(), layout_.fields.end(), [](const DbfField& f) { return f.isMemo(); });
  memo_.reset();
  if (!needsMemo) return;
  memo_.emplace(memoPath_, layout_.memoKind);
  if (memo_->seal() != layout_.seal) TableDamaged("it and its memo file do not belong together");
}

void DbfTable::close() {
  file_.close();
  memo_.reset();
}

const DbfField& DbfTable::field(std::int64_t index) const {
  if (index < 0 || index >= static_cast<std::int64_t>(layout_.fields.size()))
    NoSuchField(std::to_string(index));
  return layout_.fields[static_cast<std::size_t>(index)];
}

const DbfField& DbfTable::field(std::string_view name) const {
  const std::string wanted = ToLowerAscii(name);
  for (const DbfField& field : layout_.fields) {
    if (ToLowerAscii(field.name) == wanted) return field;
  }
  NoSuchField(std::string(name));
}

std::uint64_t DbfTable::offsetOf(std::int64_t record) const {
  return layout_.headerLength + static_cast<std::uint64_t>(record) * layout_.recordLength;
}

bool DbfTable::isDeleted(std::int64_t record) {
  const std::uint64_t length = layout_.recordLength;
  const auto atOnce = static_cast<std::int64_t>(std::max<std::uint64_t>(kMarkPiece / length, 1));
  if (marks_.empty() || record / atOnce != marksFrom_ / atOnce) {
    marksFrom_ = record / atOnce * atOnce;
    marks_ = file_.read(offsetOf(marksFrom_), static_cast<std::uint64_t>(atOnce - 1) * length + 1);
  }
  const std::uint64_t at = static_cast<std::uint64_t>(record - marksFrom_) * length;
  if (at >= marks_.size()) TableDamaged("a record cannot be read");
  const char mark = marks_[at];
  if (mark != kLive && mark != kDeleted) TableDamaged("a record has no beginning");
  return mark == kDeleted;
}

std::string DbfTable::record(std::int64_t record) {
  std::string bytes = file_.read(offsetOf(record), layout_.recordLength);
  if (bytes.size() != layout_.recordLength) TableDamaged("a record cannot be read");
  return bytes;
}

std::string DbfTable::value(const DbfField& field, std::string_view recordBytes) {
  const std::string_view text = recordBytes.substr(field.offset, field.length);
  if (field.isMemo()) {
    const std::uint64_t block = BlockNumber(field, text);
    return block == 0 ? std::string() : memo_->read(block);
  }
  if (!field.isNumber()) return std::string(WithoutBlanksAtEnd(text));
  const std::string_view number = WithoutBlanks(text);
  if (!number.empty() && !IsNumber(number)) {
    TableDamaged("the field " + field.name + " holds text where a number is due");
  }
  return std::string(number);
}

void DbfTable::value(const DbfField& field, std::string_view recordBytes, const TakePiece& take) {
  const std::uint64_t block =
      field.isMemo() ? BlockNumber(field, recordBytes.substr(field.offset, field.length)) : 0;
  block == 0 ? take(value(field, recordBytes)) : memo_->read(block, take);
}

std::string DbfTable::withFieldBytes(const DbfField& field, std::int64_t record, std::string_view bytes) {
  std::string table = file_.read(0, file_.size());
  const std::uint64_t at = offsetOf(record) + field.offset;
  if (table.size() < at + bytes.size()) TableDamaged("a record cannot be read");
  return table.replace(at, bytes.size(), bytes);
}

std::string FieldBytes(const DbfField& field, std::string_view value) {
  const bool toTheRight = field.isNumber() || field.isMemo();
  std::string bytes(toTheRight ? WithoutBlanks(value) : value);
  const bool isWrong = toTheRight && !bytes.empty() && !IsNumber(bytes);
  if (isWrong || bytes.size() > field.length) {
    throw DatabaseError(DatabaseFailure::cannotStore,
                        "The value does not fit into the field " + field.name + ".");
  }
  return bytes.insert(toTheRight ? 0 : bytes.size(), field.length - bytes.size(), ' ');
}

}  // namespace korvane
