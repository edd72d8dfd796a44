// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/StockTable.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <utility>

#include "files/DiskFile.h"
#include "files/NativePath.h"
#include "stock/BinaryNumbers.h"
#include "stock/DbfLayout.h"
#include "stock/MemoFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr int kMostNames = 100;

struct Column {
  std::string_view name;
  char type;
  std::size_t length;
};

constexpr std::array<Column, 2> kColumns = {{{"PATH", 'C', 254}, {"TEXT", 'M', 10}}};
constexpr std::uint64_t kBlockSize = 512;
constexpr std::size_t kHeaderLength = kDbfHeader + kDbfDescriptor * kColumns.size() + 1 + PairSeal::kSize;
constexpr std::size_t kRecordLength = 1 + kColumns[0].length + kColumns[1].length;
constexpr std::string_view kVersion4WithMemo = "\x8b";
constexpr std::string_view kDate = "\x64\x01\x01";  // of the last change; 2000-01-01, so that nothing varies
constexpr std::string_view kWindows1252 = "\x03";

std::string Padded(std::string_view text, std::size_t length, char filler) {
  std::string padded(text);
  padded.resize(length, filler);
  return padded;
}

std::string Descriptor(const Column& column) {
  const std::string nameAndType = Padded(column.name, kDbfFieldType, '\0') + column.type;
  const std::string bytes = Padded(nameAndType, kDbfFieldLength, '\0') + LittleBytes(column.length, 1);
  return Padded(bytes, kDbfDescriptor, '\0');
}

std::string TableHeader(std::uint32_t records, const PairSeal& seal) {
  std::string header(kVersion4WithMemo);
  header.append(kDate).append(LittleBytes(records, 4));
  header.append(LittleBytes(kHeaderLength, 2)).append(LittleBytes(kRecordLength, 2));
  header = Padded(Padded(header, kDbfLanguageDriver, '\0').append(kWindows1252), kDbfHeader, '\0');
  for (const Column& column : kColumns) header += Descriptor(column);
  return (header += kDbfHeaderEnd).append(seal.bytes());
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void StopAt(const std::string& reason) {
  if (!reason.empty()) throw std::runtime_error("the stock database cannot be written: " + reason);
}

fs::path WithEnding(fs::path base, const char* ending) {
  base += ending;
  return base;
}

// What can be packed once more need not be forced to the disk; what it replaces cannot be had again.
WholeFile::Options OptionsFor(const fs::path& base) {
  std::error_code ignored;
  const bool replaces =
      fs::exists(WithEnding(base, ".DBF"), ignored) || fs::exists(WithEnding(base, ".DBT"), ignored);
  return {.sync = replaces};
}

// A file that is about to be replaced, under a second name until this ends. Where there is no file, there is
// no second name either.
class FormerFile {
 public:
  explicit FormerFile(const fs::path& path) : path_(path) {
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 1; i <= kMostNames && error == std::errc::file_exists; ++i) {
      kept_ = WithEnding(path_, (".former" + std::to_string(i)).c_str());
      error = GiveSecondName(path_, kept_);
    }
    if (!error) return;
    const fs::path name = std::exchange(kept_, fs::path());
    if (error != std::errc::no_such_file_or_directory && fs::copy_file(path_, name, error))
      kept_ = name;  // a file system without links
    if (kept_.empty() && error != std::errc::no_such_file_or_directory) reason_ = error.message();
  }
  ~FormerFile() {
    std::error_code ignored;
    if (!kept_.empty()) fs::remove(kept_, ignored);
  }
  FormerFile(const FormerFile&) = delete;
  FormerFile& operator=(const FormerFile&) = delete;

  // Why the file cannot have a second name.
  const std::string& reason() const { return reason_; }

  // Undoes the replacing. Gives what to tell the user when that fails.
  std::string putBack() {
    std::error_code error;
    const fs::path kept = std::exchange(kept_, fs::path());
    if (kept.empty())
      fs::remove(path_, error);
    else
      error = RenameOver(kept, path_);
    if (!error) return {};
    return "; " + Utf8FromPath(path_) + " is already new" +
           (kept.empty() ? "" : ", its former version is " + Utf8FromPath(kept));
  }

 private:
  fs::path path_;
  fs::path kept_;
  std::string reason_;
};

}  // namespace

StockTable::StockTable(const fs::path& base)
    : table_(WithEnding(base, ".DBF"), OptionsFor(base)),
      memos_(WithEnding(base, ".DBT"), OptionsFor(base)),
      memoPath_(BehindLinks(WithEnding(base, ".DBT"))) {
  table_.write(TableHeader(0, seal_));
  memos_.write(MemoFileHeader(1, kBlockSize, seal_.bytes()));
}

void StockTable::add(std::string_view path, std::string_view text) {
  add(path, text.size(), [text](const TakePiece& take) { take(text); });
}

void StockTable::add(std::string_view path, std::uint64_t size, const GiveText& give) {
  if (path.size() > kColumns[0].length || !IsAscii(path) || size > kMaxMemo) {
    throw std::runtime_error(std::string(path) + ": the path or the file does not fit into a stock database");
  }
  addRecord(path, size == 0 ? std::string() : std::to_string(memos_.size() / kBlockSize));
  if (size > 0) addMemo(size, give);
}

void StockTable::addRecord(std::string_view path, std::string_view block) {
  std::string record = ' ' + Padded(path, kColumns[0].length, ' ');
  record.append(kColumns[1].length - block.size(), ' ').append(block);
  table_.write(record);
  seal_.add(record);  // a memo file with the same blocks for the same paths goes with this table
  ++records_;
  StopAt(table_.reason());
}

void StockTable::addMemo(std::uint64_t size, const GiveText& give) {
  memos_.write(MemoHead(MemoKind::version4, size));
  const std::uint64_t start = memos_.size();
  give([this](std::string_view piece) { memos_.write(piece); });
  if (memos_.size() - start != size) throw std::runtime_error("a file changed while it was packed");
  memos_.write(MemoTail(MemoKind::version4, size, kBlockSize));
  StopAt(memos_.reason());
}

void StockTable::commit() {
  table_.write({&kDbfFileEnd, 1});
  table_.rewrite(0, TableHeader(records_, seal_));
  memos_.rewrite(0, MemoFileHeader(memos_.size() / kBlockSize, kBlockSize, seal_.bytes()));
  StopAt(table_.finish());
  StopAt(memos_.finish());
  place();
}

// The former memo file keeps a second name until the table is in its place, and is put back when that fails.
void StockTable::place() {
  FormerFile former(memoPath_);
  StopAt(former.reason());
  StopAt(memos_.replace());
  const std::string reason = table_.replace();
  if (!reason.empty()) StopAt(reason + former.putBack());
}

}  // namespace korvane
