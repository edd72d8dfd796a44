// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace korvane {

// The grammar of the game's INI text, on the file's own bytes. The only white space it knows is the space
// character: tabs are ordinary characters.

inline constexpr std::string_view kLineEnd = "\r\n";

// Calls `take(line)` for every line of a file's bytes, without its terminator. A line ends at CR LF or at a
// lone CR; a lone LF stays inside the line. A last line without a terminator is a line. A `take` that returns
// false ends the reading.
template <typename Take>
void ForEachLine(std::string_view bytes, Take&& take) {
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at != end) {
    const auto* cr = static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at)));
    if (cr == nullptr) {
      take(std::string_view(at, static_cast<std::size_t>(end - at)));
      return;
    }
    const std::string_view line(at, static_cast<std::size_t>(cr - at));
    if constexpr (std::is_same_v<std::invoke_result_t<Take&, std::string_view>, bool>) {
      if (!take(line)) return;
    } else {
      take(line);
    }
    at = cr + 1;
    if (at != end && *at == '\n') ++at;
  }
}

// The same for the complete lines of a piece; returns how many bytes at its end belong to an incomplete line.
template <typename Take>
std::size_t ForEachWholeLine(std::string_view piece, Take&& take) {
  const std::size_t lastCr = piece.substr(0, piece.empty() ? 0 : piece.size() - 1).rfind('\r');
  if (lastCr == std::string_view::npos) return piece.size();  // behind a CR at the very end an LF may follow
  const std::size_t end = lastCr + (piece[lastCr + 1] == '\n' ? 2 : 1);
  ForEachLine(piece.substr(0, end), take);
  return piece.size() - end;
}

// How many bytes from the second one on are such that is(byte before, byte); `is` has no branches, so that
// the compiler looks at many bytes at once.
template <typename Is>
std::size_t CountBehindFirst(std::string_view bytes, Is is) {
  constexpr std::size_t kPiece = 255;  // whose count fits into a byte
  std::size_t count = 0;
  for (std::size_t from = 1; from < bytes.size(); from += kPiece) {
    const std::size_t to = std::min(from + kPiece, bytes.size());
    std::uint8_t here = 0;
    for (std::size_t at = from; at < to; ++at)
      here = static_cast<std::uint8_t>(here + static_cast<std::uint8_t>(is(bytes[at - 1], bytes[at])));
    count += here;
  }
  return count;
}

// For CountBehindFirst: an LF that is not the end of a CR LF.
inline constexpr auto kIsLoneLf = [](char before, char byte) {
  return (static_cast<int>(byte == '\n') & static_cast<int>(before != '\r')) != 0;
};

// Calls `take(piece)` for the pieces of a text between the separators: always one more than there are
// separators, the last one possibly empty.
template <typename Take>
void ForEachPiece(std::string_view text, std::string_view separator, Take&& take) {
  for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
    take(text.substr(0, at));
    text.remove_prefix(at + separator.size());
  }
  take(text);
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string_view>& pieces, std::string_view separator);

// Without leading and trailing space characters.
std::string_view TrimSpaces(std::string_view text);

// True when the text begins with the prefix, letter case of the ASCII letters ignored. The prefix must be in
// small letters.
bool BeginsWithIgnoringCase(std::string_view text, std::string_view lowerPrefix);

std::string ToLowerAscii(std::string_view text);

// The name in a header line: the piece between its first and second space. Nothing when there is no space.
std::optional<std::string_view> HeaderName(std::string_view line);

// The value of a parameter line: the last word before the first ";" (a ";" that begins the line is dropped).
std::string_view ExtractValue(std::string_view line);

}  // namespace korvane
