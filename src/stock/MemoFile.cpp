// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/MemoFile.h"

#include <algorithm>

#include "stock/BinaryNumbers.h"
#include "stock/DatabaseError.h"
#include "stock/PairSeal.h"

namespace korvane {

namespace {

constexpr std::uint64_t kHeaderSize = 512;
constexpr std::uint64_t kDefaultBlockSize = 512;
constexpr std::size_t kBlockSizeAt = 20;
constexpr std::size_t kSealAt = kHeaderSize - PairSeal::kSize;
constexpr std::string_view kEnd3 = "\x1a\x1a";
constexpr std::string_view kMark4("\xff\xff\x08\x00", 4);
constexpr std::size_t kHead4 = 8;           // mark and length
constexpr std::uint64_t kStep = 64 * 1024;  // a memo of version III does not say how long it is

[[noreturn]] void Damaged(const std::string& what) {
  throw DatabaseError(DatabaseFailure::damaged, "The memo file of the database is damaged: " + what + ".");
}

std::uint64_t RoundedUp(std::uint64_t size, std::uint64_t step) {
  return (size + step - 1) / step * step;
}

// Version III knows blocks of 512 bytes only and leaves anything at the place of the block size; what is no
// multiple of that is no block size.
std::uint64_t BlockSize(MemoKind kind, std::uint64_t claimed) {
  const bool usable = kind == MemoKind::version4 || claimed % kDefaultBlockSize == 0;
  return claimed == 0 || !usable ? kDefaultBlockSize : claimed;
}

}  // namespace

std::string MemoHead(MemoKind kind, std::uint64_t textSize) {
  if (kind == MemoKind::version3) return {};
  return std::string(kMark4) + LittleBytes(textSize + kHead4, 4);
}

std::string MemoTail(MemoKind kind, std::uint64_t textSize, std::uint64_t blockSize) {
  const bool is3 = kind == MemoKind::version3;
  std::string tail(is3 ? kEnd3 : std::string_view());
  const std::uint64_t filled = textSize + (is3 ? kEnd3.size() : kHead4);
  return tail.append(RoundedUp(filled, blockSize) - filled, '\0');
}

std::string MemoFileHeader(std::uint64_t firstFree, std::uint64_t blockSize, std::string_view seal) {
  std::string header(kHeaderSize, '\0');
  header.replace(0, 4, LittleBytes(firstFree, 4));
  header.replace(kBlockSizeAt, 2, LittleBytes(blockSize, 2));
  header.replace(kSealAt, seal.size(), seal);
  return header;
}

MemoFile::MemoFile(const std::string& path, MemoKind kind) : kind_(kind) {
  if (!file_.open(ProgramPath(path))) {
    throw DatabaseError(DatabaseFailure::fileNotFound,
                        "The memo file of the database, \"" + path + "\", cannot be opened.");
  }
  const std::string header = file_.read(0, kHeaderSize);
  if (header.size() < kBlockSizeAt + 2) Damaged("it has no header");
  blockSize_ = BlockSize(kind_, Little16(header, kBlockSizeAt));
  if (header.size() == kHeaderSize) seal_ = PairSeal::Found(std::string_view(header).substr(kSealAt));
}

std::string MemoFile::read(std::uint64_t block) {
  const Place place = placeOf(block);
  std::string text = file_.read(place.offset, place.length);
  if (text.size() != place.length) Damaged("a text cannot be read");
  return text;
}

void MemoFile::read(std::uint64_t block, const TakePiece& take) {
  const Place place = placeOf(block);
  if (file_.read(place.offset, place.length, take) != place.length) Damaged("a text cannot be read");
}

MemoFile::Place MemoFile::placeOf(std::uint64_t block) {
  if (block == 0 || block > file_.size() / blockSize_ || block * blockSize_ >= file_.size()) {
    Damaged("there is no block " + std::to_string(block));
  }
  const std::uint64_t offset = block * blockSize_;
  return kind_ == MemoKind::version3 ? placeOfVersion3(offset) : placeOfVersion4(offset);
}

MemoFile::Place MemoFile::placeOfVersion3(std::uint64_t offset) {
  std::string text;  // the piece, behind the last byte of the one before: the end may straddle the two
  std::uint64_t at = offset;
  for (std::string piece; !(piece = file_.read(at, kStep)).empty(); at += piece.size()) {
    const std::uint64_t start = at - text.size();
    text += piece;
    const std::size_t end = text.find(kEnd3);
    if (end != std::string::npos) return {offset, start + end - offset};
    text.erase(0, text.size() - 1);
  }
  // The last memo of a file is ended by the end mark of the file.
  if (text.empty() || text.back() != kEnd3[0]) Damaged("a text has no end");
  return {offset, at - 1 - offset};
}

MemoFile::Place MemoFile::placeOfVersion4(std::uint64_t offset) {
  const std::string head = file_.read(offset, kHead4);
  if (head.size() < kHead4 || !head.starts_with(kMark4)) Damaged("a text has no beginning");
  const std::uint32_t length = Little32(head, kMark4.size());
  if (length < kHead4 || length > file_.size() - offset) Damaged("a text is longer than the file");
  return {offset + kHead4, length - kHead4};
}

MemoFile::Grown MemoFile::withText(std::string_view text) {
  if (text.size() > kMaxMemo || (kind_ == MemoKind::version3 && text.find(kEnd3[0]) != std::string::npos)) {
    throw DatabaseError(DatabaseFailure::cannotStore,
                        "The text cannot be stored in a memo of this database.");
  }
  std::string bytes = file_.read(0, file_.size());
  if (bytes.size() != file_.size()) Damaged("it cannot be read");
  bytes.resize(RoundedUp(std::max<std::uint64_t>(bytes.size(), kHeaderSize), blockSize_), '\0');
  const std::uint64_t block = bytes.size() / blockSize_;
  bytes += MemoHead(kind_, text.size());
  bytes += text;
  bytes += MemoTail(kind_, text.size(), blockSize_);
  bytes.replace(0, 4, LittleBytes(bytes.size() / blockSize_, 4));
  return {std::move(bytes), block};
}

}  // namespace korvane
