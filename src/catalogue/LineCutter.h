// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstring>
#include <string_view>

namespace korvane {

// Takes the lines off a text one after the other, without what ends them: CR LF, LF or CR. A last line
// without an end is a line.
class LineCutter {
 public:
  explicit LineCutter(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

  // False when there is no further line.
  bool next(std::string_view& line) {
    if (at_ == end_) return false;
    const char* const lf = find('\n', end_);
    const char* const cr = find('\r', lf);
    line = {at_, static_cast<std::size_t>(cr - at_)};
    at_ = cr == end_ ? cr : cr + 1;
    if (cr != lf && at_ == lf && lf != end_) ++at_;
    return true;
  }

 private:
  const char* find(char byte, const char* end) const {
    const auto* found = static_cast<const char*>(std::memchr(at_, byte, static_cast<std::size_t>(end - at_)));
    return found == nullptr ? end : found;
  }

  const char* at_;
  const char* end_;
};

}  // namespace korvane
