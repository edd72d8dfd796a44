// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// How well a name fits what somebody types: the better ones come first.
enum class MatchRank : std::uint8_t { exact, prefix, wordStart, substring, initials };

// A part of a name, in bytes.
struct NamePart {
  std::uint32_t begin = 0;
  std::uint32_t size = 0;
  bool operator==(const NamePart&) const = default;
};

// Finds names by a part of them or by the beginnings of their words: "amtacru" finds AmericaTankCrusader. A
// word begins at a capital letter behind a small one, at a digit behind a letter and the other way round, and
// behind everything that is no letter and no digit. Letter case and blanks in the pattern do not matter.
class NameMatcher {
 public:
  explicit NameMatcher(std::string_view pattern);

  // Without a pattern every name fits, as a prefix.
  std::optional<MatchRank> rank(std::string_view name) const;
  // The letters of a name that fits: one part, or one for each word whose beginning is meant.
  std::vector<NamePart> parts(std::string_view name) const;

 private:
  bool mayMatch(std::string_view name) const;
  std::optional<std::size_t> find(std::string_view name) const;
  std::vector<std::uint32_t> initials(std::string_view name) const;

  std::string pattern_;        // folded
  std::uint64_t letters_ = 0;  // which ones occur in it
};

}  // namespace korvane
