// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/DbfLayout.h"

#include "stock/BinaryNumbers.h"
#include "stock/DatabaseError.h"
#include "stock/PairSeal.h"

namespace korvane {

namespace {

constexpr std::uint32_t kVersion3 = 0x03;  // III or IV without memos
constexpr std::uint32_t kVersion3Memo = 0x83;
constexpr std::uint32_t kVersion4Memo = 0x8b;

MemoKind MemoKindOf(const std::string& header) {
  const std::uint32_t version = header.empty() ? 0 : ByteAt(header, 0);
  if (version == kVersion4Memo) return MemoKind::version4;
  if (version == kVersion3 || version == kVersion3Memo) return MemoKind::version3;
  throw DatabaseError(DatabaseFailure::noDriver,
                      "The database is not a dBASE table of a version that can be read.");
}

// A character field may be longer than one byte can say; the number of decimals has its high byte then.
DbfField Field(std::string_view descriptor, std::size_t offset) {
  const std::string_view name = descriptor.substr(0, kDbfFieldType);
  const char type = descriptor[kDbfFieldType];
  const std::size_t length =
      type == 'C' ? Little16(descriptor, kDbfFieldLength) : ByteAt(descriptor, kDbfFieldLength);
  return {std::string(name.substr(0, name.find('\0'))), type, offset, length};
}

std::vector<DbfField> Fields(std::string_view header, std::uint64_t recordLength) {
  std::vector<DbfField> fields;
  std::size_t offset = 1;
  std::size_t at = kDbfHeader;
  for (; at < header.size() && header[at] != kDbfHeaderEnd; at += kDbfDescriptor) {
    if (header.size() - at < kDbfDescriptor) TableDamaged("its list of fields is cut off");
    fields.push_back(Field(header.substr(at, kDbfDescriptor), offset));
    offset += fields.back().length;
  }
  if (at >= header.size()) TableDamaged("its list of fields has no end");
  if (fields.empty() || offset != recordLength) TableDamaged("its fields do not fill its records");
  return fields;
}

// Behind the mark that ends the list of fields.
std::string SealIn(std::string_view header, std::size_t fields) {
  return PairSeal::Found(header.substr(kDbfHeader + fields * kDbfDescriptor + 1));
}

// The count in the header is not to be trusted over the mark that ends the records. Where the file ends
// without it, before all counted records have come, the rest is lost.
std::uint64_t RecordsThere(RandomFile& file, const DbfLayout& layout) {
  const std::uint64_t bytes = file.size() - layout.headerLength;
  const std::uint64_t whole = bytes / layout.recordLength;
  if (layout.recordCount <= whole) return layout.recordCount;
  const std::string rest = file.read(layout.headerLength + whole * layout.recordLength, 1);
  if (rest.empty()) TableDamaged("records at its end are missing");
  if (rest[0] != kDbfFileEnd) TableDamaged("its last record is cut off");
  return whole;
}

}  // namespace

void TableDamaged(const std::string& what) {
  throw DatabaseError(DatabaseFailure::damaged, "The table of the database is damaged: " + what + ".");
}

DbfLayout ReadDbfLayout(RandomFile& file) {
  std::string header = file.read(0, kDbfHeader);
  const MemoKind memoKind = MemoKindOf(header);
  if (header.size() < kDbfHeader) TableDamaged("its header is cut off");
  DbfLayout layout{memoKind,
                   Little32(header, 4),
                   Little16(header, 8),
                   Little16(header, 10),
                   static_cast<std::uint8_t>(ByteAt(header, kDbfLanguageDriver)),
                   {},
                   {}};
  header = file.read(0, layout.headerLength);
  if (header.size() != layout.headerLength) TableDamaged("its header is cut off");
  layout.fields = Fields(header, layout.recordLength);
  layout.seal = SealIn(header, layout.fields.size());
  layout.recordCount = RecordsThere(file, layout);
  return layout;
}

}  // namespace korvane
