// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/NativePath.h"
#include "stock/BinaryNumbers.h"
#include "stock/DBCtl.h"
#include "stock/MemoFile.h"

namespace korvane {

// Stores files the simplest way.
inline std::string StoreBytes(std::string_view path, std::string_view bytes) {
  std::ofstream(NativePath(ProgramPath(path)), std::ios::binary) << bytes;
  return {};
}

inline void Put(std::string& bytes, std::size_t at, std::string_view part) {
  bytes.replace(at, part.size(), part);
}

// The records of the database: path and text.
using StockRecords = std::vector<std::pair<std::string, std::string>>;

inline StockRecords ReadAll(DBCtl& database) {
  StockRecords records;
  for (; !database.AtEnd(); database.MoveNext()) {
    records.emplace_back(database.GetData(0), database.GetData(1));
  }
  return records;
}

inline std::string BigBytes(std::uint32_t number) {
  std::string bytes = LittleBytes(number, 4);
  return {bytes.rbegin(), bytes.rend()};
}

// One of the game's archives with the files in it.
inline std::string ArchiveBytes(const StockRecords& files) {
  std::size_t header = 16;
  for (const auto& [path, text] : files) header += 8 + path.size() + 1;
  std::string list;
  std::string texts;
  for (const auto& [path, text] : files) {
    list += BigBytes(static_cast<std::uint32_t>(header + texts.size())) +
            BigBytes(static_cast<std::uint32_t>(text.size())) + path + '\0';
    texts += text;
  }
  return "BIGF" + LittleBytes(header + texts.size(), 4) + BigBytes(static_cast<std::uint32_t>(files.size())) +
         BigBytes(static_cast<std::uint32_t>(header)) + list + texts;
}

// A database as bytes, for tests to spoil: 129 bytes of header with the fields PATH (C 20), TEXT (M 10) and
// SIZE (N 5), records of 36 bytes.
struct RawDatabase {
  static constexpr std::size_t kHeader = 129;
  static constexpr std::size_t kRecord = 36;
  static constexpr std::size_t kMemo = 21;  // in the record
  static constexpr std::size_t kSize = 31;

  explicit RawDatabase(const StockRecords& records, MemoKind kind = MemoKind::version4,
                       std::uint64_t block = 512)
      : table(kHeader, '\0'), memos(MemoFileHeader(1, block)) {
    Put(table, 0, kind == MemoKind::version4 ? "\x8b" : "\x83");
    Put(table, 4, LittleBytes(records.size(), 4) + LittleBytes(kHeader, 2) + LittleBytes(kRecord, 2));
    field(0, "PATH", 'C', 20);
    field(1, "TEXT", 'M', 10);
    field(2, "SIZE", 'N', 5);
    table[kHeader - 1] = '\r';
    memos.resize((memos.size() + block - 1) / block * block);
    for (const auto& [path, text] : records) {
      table += ' ' + right(path, 20) + left(std::to_string(memos.size() / block), 10) +
               left(std::to_string(text.size()), 5);
      memos += MemoHead(kind, text.size()) + text + MemoTail(kind, text.size(), block);
    }
  }

  std::string table;
  std::string memos;

 private:
  void field(std::size_t index, std::string_view name, char type, std::size_t length) {
    Put(table, 32 + 32 * index, name);
    table[32 + 32 * index + 11] = type;
    table[32 + 32 * index + 16] = static_cast<char>(length);
  }
  static std::string left(const std::string& text, std::size_t width) {
    return std::string(width - text.size(), ' ') + text;
  }
  static std::string right(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
  }
};

}  // namespace korvane
