// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/NameMatcher.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "catalogue/FoldedText.h"

namespace korvane {

namespace {

constexpr std::size_t kMostLetters =
    64;  // of a name and of a pattern that are compared by the words' beginnings

enum class ByteClass : std::uint8_t { other, digit, small, capital };

ByteClass ClassOf(char byte) {
  if (byte >= 'a' && byte <= 'z') return ByteClass::small;
  if (byte >= 'A' && byte <= 'Z') return ByteClass::capital;
  return byte >= '0' && byte <= '9' ? ByteClass::digit : ByteClass::other;
}

// The last capital of several begins a word too: the T of "GLATank".
bool BeginsWord(std::string_view name, std::size_t at) {
  const ByteClass here = ClassOf(name[at]);
  if (here == ByteClass::other) return false;
  if (at == 0) return true;
  const ByteClass before = ClassOf(name[at - 1]);
  if (here == ByteClass::small) return before != ByteClass::capital && before != ByteClass::small;
  if (here != before) return true;
  return here == ByteClass::capital && at + 1 < name.size() && ClassOf(name[at + 1]) == ByteClass::small;
}

std::uint64_t LettersOf(std::string_view text) {
  std::uint64_t letters = 0;
  for (const char byte : text)
    letters |= std::uint64_t{1} << (static_cast<unsigned char>(FoldedByte(byte)) % 64);
  return letters;
}

// One bit for each place of a name.
template <typename Has>
std::uint64_t PlacesOf(std::string_view name, Has has) {
  std::uint64_t places = 0;
  for (std::size_t at = 0; at < name.size(); ++at) places |= std::uint64_t{has(at)} << at;
  return places;
}

// All places behind the first of these.
std::uint64_t Behind(std::uint64_t places) {
  return ~(places ^ (places - 1));
}

// A place for each letter out of those that it may have, from the last letter to the first.
std::vector<std::uint32_t> WayThrough(std::span<const std::uint64_t> reached) {
  std::vector<std::uint32_t> way(reached.size());
  auto place = static_cast<std::uint32_t>(std::countr_zero(reached.back()));
  for (std::size_t i = reached.size() - 1;; --i) {
    way[i] = place;
    if (i == 0) return way;
    const std::uint64_t before = reached[i - 1] & ((std::uint64_t{1} << place) - 1);
    place = static_cast<std::uint32_t>(std::bit_width(before)) - 1;
  }
}

bool IsBlank(char byte) {
  return byte == ' ' || byte == '\t';
}

}  // namespace

NameMatcher::NameMatcher(std::string_view pattern) {
  for (const char byte : pattern)
    if (!IsBlank(byte)) pattern_ += FoldedByte(byte);
  letters_ = LettersOf(pattern_);
}

bool NameMatcher::mayMatch(std::string_view name) const {
  return name.size() >= pattern_.size() && (letters_ & ~LettersOf(name)) == 0;
}

// The pattern's place in the name: at the beginning of a word if there is such a one, else the first.
std::optional<std::size_t> NameMatcher::find(std::string_view name) const {
  std::optional<std::size_t> first;
  const auto same = [](char a, char b) { return FoldedByte(a) == b; };
  auto at = std::search(name.begin(), name.end(), pattern_.begin(), pattern_.end(), same);
  while (at != name.end()) {
    const auto place = static_cast<std::size_t>(at - name.begin());
    if (BeginsWord(name, place)) return place;
    if (!first) first = place;
    at = std::search(at + 1, name.end(), pattern_.begin(), pattern_.end(), same);
  }
  return first;
}

std::optional<MatchRank> NameMatcher::rank(std::string_view name) const {
  if (pattern_.empty()) return MatchRank::prefix;
  if (!mayMatch(name)) return std::nullopt;
  if (const auto at = find(name)) {
    if (EqualFolded(name.substr(0, pattern_.size()), pattern_))
      return name.size() == pattern_.size() ? MatchRank::exact : MatchRank::prefix;
    return BeginsWord(name, *at) ? MatchRank::wordStart : MatchRank::substring;
  }
  if (initials(name).empty()) return std::nullopt;
  return MatchRank::initials;
}

// Where each of the pattern's letters stands when it is made of beginnings of words, in the order of the
// words; empty when it is not.
std::vector<std::uint32_t> NameMatcher::initials(std::string_view name) const {
  name = name.substr(0, kMostLetters);
  if (pattern_.size() > name.size()) return {};
  std::array<std::uint64_t, kMostLetters> reached{};
  const std::uint64_t starts = PlacesOf(name, [&](std::size_t at) { return BeginsWord(name, at); });
  for (std::size_t i = 0; i < pattern_.size(); ++i) {
    const std::uint64_t same =
        PlacesOf(name, [&](std::size_t at) { return FoldedByte(name[at]) == pattern_[i]; });
    const std::uint64_t next = i == 0 ? starts : reached[i - 1] << 1 | (starts & Behind(reached[i - 1]));
    reached[i] = same & next;
    if (reached[i] == 0) return {};
  }
  return WayThrough(std::span(reached).first(pattern_.size()));
}

std::vector<NamePart> NameMatcher::parts(std::string_view name) const {
  if (pattern_.empty() || !mayMatch(name)) return {};
  const auto size = static_cast<std::uint32_t>(pattern_.size());
  if (EqualFolded(name.substr(0, size), pattern_)) return {{0, size}};
  if (const auto at = find(name)) return {{static_cast<std::uint32_t>(*at), size}};
  std::vector<NamePart> parts;
  for (const std::uint32_t place : initials(name)) {
    if (!parts.empty() && parts.back().begin + parts.back().size == place) {
      ++parts.back().size;
    } else {
      parts.push_back({place, 1});
    }
  }
  return parts;
}

}  // namespace korvane
