// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/BigArchive.h"

#include <algorithm>

#include "ini/IniText.h"
#include "stock/BinaryNumbers.h"

namespace korvane {

namespace {

constexpr std::size_t kHeaderSize = 16;
constexpr std::size_t kNumbers = 8;  // place and size of a file
constexpr std::size_t kLongestPath = 512;

std::string Comparable(std::string_view path) {
  std::string text = ToLowerAscii(path);
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

}  // namespace

BigArchive::BigArchive(const std::string& path) : path_(path) {
  if (!file_.open(ProgramPath(path))) fail("it cannot be opened");
  const std::uint32_t count = readHeader();
  std::uint64_t at = kHeaderSize;
  for (std::uint32_t i = 0; i < count; ++i)
    at = readEntry(at);  // a count that is too large fails at the end of the file
}

void BigArchive::fail(const std::string& why) const {
  throw ArchiveError("The archive \"" + path_ + "\" cannot be read: " + why + ".");
}

std::uint32_t BigArchive::readHeader() {
  const std::string header = file_.read(0, kHeaderSize);
  if (!header.starts_with(kBigArchiveMark)) fail("it is no BIGF archive");
  if (header.size() < kHeaderSize) fail("its header is cut off");
  if (Little32(header, 4) > file_.size()) fail("it is cut off");
  if (Big32(header, 12) > file_.size()) fail("its header is longer than the file");
  return Big32(header, 8);
}

std::uint64_t BigArchive::readEntry(std::uint64_t at) {
  const std::string bytes = file_.read(at, kNumbers + kLongestPath + 1);
  const std::size_t end = bytes.find('\0', kNumbers);
  if (end == std::string::npos || end == kNumbers) fail("its list of files is damaged");
  Entry entry{bytes.substr(kNumbers, end - kNumbers), Big32(bytes, 0), Big32(bytes, 4)};
  if (std::uint64_t{entry.offset} + entry.size > file_.size()) fail(entry.path + " lies outside of it");
  places_.emplace(Comparable(entry.path), entries_.size());
  entries_.push_back(std::move(entry));
  return at + end + 1;
}

const BigArchive::Entry* BigArchive::find(std::string_view path) const {
  const auto found = places_.find(Comparable(path));
  return found == places_.end() ? nullptr : &entries_[found->second];
}

void BigArchive::read(const Entry& entry, const TakePiece& take) {
  if (file_.read(entry.offset, entry.size, take) != entry.size) fail(entry.path + " cannot be read");
}

}  // namespace korvane
