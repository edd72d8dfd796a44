// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/DBCtl.h"

#include <utility>

#include "ini/IniText.h"
#include "stock/DbfTable.h"

namespace korvane {

namespace {

constexpr std::string_view kTableEnding = ".DBF";
constexpr std::string_view kMemoEnding = ".DBT";

// The path of the table and its memo file without their endings.
std::string BasePath(std::string_view folder, std::string_view table) {
  if (ToLowerAscii(table).ends_with(ToLowerAscii(kTableEnding))) table.remove_suffix(kTableEnding.size());
  std::string path(folder);
  if (!path.empty() && !path.ends_with('\\')) path += '\\';
  return path.append(table);
}

[[noreturn]] void NoCurrentRecord() {
  throw DatabaseError(DatabaseFailure::noCurrentRecord, "The database has no current record.");
}

[[noreturn]] void CannotStore(const std::string& reason) {
  throw DatabaseError(DatabaseFailure::cannotStore, "The database cannot be stored: " + reason);
}

}  // namespace

DBCtl::DBCtl(ReplaceFile replaceFile) : replaceFile_(std::move(replaceFile)) {}
DBCtl::~DBCtl() = default;

void DBCtl::LoadDatabase(std::string_view Path, std::string_view Filename) {
  table_.reset();
  const std::string base = BasePath(Path, Filename);
  table_ = std::make_unique<DbfTable>(base + std::string(kTableEnding), base + std::string(kMemoEnding));
  row_ = -1;
  position_ = -1;
  count_.reset();
  try {
    stepForward();
    if (AtEnd()) throw DatabaseError(DatabaseFailure::noCurrentRecord, "The database has no records.");
    readCurrent();
  } catch (const DatabaseError&) {
    table_.reset();
    throw;
  }
}

DbfTable& DBCtl::table() const {
  if (!table_) NoCurrentRecord();
  return *table_;
}

void DBCtl::stepForward() {
  record_.clear();
  do ++row_;
  while (row_ < table().records() && table().isDeleted(row_));
  ++position_;
}

void DBCtl::stepBack() {
  record_.clear();
  do --row_;
  while (row_ >= 0 && table().isDeleted(row_));
  --position_;
}

void DBCtl::readCurrent() {
  const bool there = row_ >= 0 && row_ < table().records();
  record_ = there ? table().record(row_) : std::string();
}

void DBCtl::arrive() {
  readCurrent();
  if (RecordChange) RecordChange();
}

void DBCtl::MoveNext() {
  if (row_ >= table().records()) NoCurrentRecord();
  stepForward();
  arrive();
}

void DBCtl::MovePrevious() {
  if (row_ < 0 || !table_) NoCurrentRecord();
  stepBack();
  arrive();
}

void DBCtl::SetRecord(std::int64_t Index) {
  while (position_ < Index && row_ < table().records()) stepForward();
  while (position_ > Index && row_ >= 0) stepBack();
  arrive();
}

const std::string& DBCtl::currentRecord() const {
  if (record_.empty()) NoCurrentRecord();
  return record_;
}

std::string DBCtl::GetData(int Field) {
  return table().value(table().field(std::int64_t{Field}), currentRecord());
}

std::string DBCtl::GetData(std::string_view Field) {
  return table().value(table().field(Field), currentRecord());
}

void DBCtl::GetData(int Field, const TakePiece& take) {
  table().value(table().field(std::int64_t{Field}), currentRecord(), take);
}

void DBCtl::SetData(int Field, std::string_view Data) {
  store(table().field(std::int64_t{Field}), Data);
}

void DBCtl::SetData(std::string_view Field, std::string_view Data) {
  store(table().field(Field), Data);
}

void DBCtl::store(const DbfField& wanted, std::string_view data) {
  currentRecord();
  const DbfField field = wanted;  // opening the table anew makes new fields
  std::string value(data);
  if (field.isMemo() && !data.empty()) {
    const MemoFile::Grown memo = table().memoWithText(data);
    replace(table().memoPath(), memo.bytes);
    value = std::to_string(memo.block);
  }
  const std::string bytes = table().withFieldBytes(field, row_, FieldBytes(field, value));
  replace(table().path(), bytes);
  readCurrent();
}

// The files are let go of meanwhile: an open file cannot be replaced everywhere. If they cannot be opened
// again, no table is open any more.
void DBCtl::replace(const std::string& path, std::string_view bytes) {
  if (!replaceFile_) throw DatabaseError(DatabaseFailure::cannotStore, "The database can only be read.");
  std::unique_ptr<DbfTable> table = std::move(table_);
  table->close();
  const std::string reason = replaceFile_(path, bytes);
  try {
    table->reopen();
  } catch (const DatabaseError& error) {
    record_.clear();
    CannotStore(reason.empty() ? error.what() : reason);
  }
  table_ = std::move(table);
  if (!reason.empty()) CannotStore(reason);
}

bool DBCtl::AtEnd() const {
  return table_ && row_ >= table_->records();
}

std::int64_t DBCtl::RecordPosition() const {
  return position_;
}

std::int64_t DBCtl::RecordCount() {
  if (!table_) return 0;
  if (!count_) {
    std::int64_t count = 0;
    for (std::int64_t row = 0; row < table_->records(); ++row) count += table_->isDeleted(row) ? 0 : 1;
    count_ = count;
  }
  return *count_;
}

std::uint8_t DBCtl::languageDriver() const {
  return table_ ? table_->layout().languageDriver : std::uint8_t{0};
}

}  // namespace korvane
