// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// Lines from the first to the last, both included; they count from 1.
struct LineRange {
  int first = 0;
  int last = 0;
};

// The comments of one file that silence the checker: "; korvane: ignore duplicate, key-twice" speaks for its
// own line, and for the whole block when the line is a block's header.
class IgnoreComments {
 public:
  // Reads the comments out of a file's bytes. Lines end at CR LF, LF or CR. `blocks` gives the lines of every
  // block, and is asked only when there is a comment.
  IgnoreComments(std::string_view bytes, const std::function<std::vector<LineRange>()>& blocks);

  bool silences(std::string_view code, int line) const;

 private:
  using Ranges = std::vector<LineRange>;  // by their first lines; each ends where it or one before it does

  void takeComment(std::string_view text, int line);
  void coverBlocks(const std::vector<LineRange>& blocks);

  std::map<std::string, Ranges, std::less<>> rangesOfCode_;
};

// The comment that silences a code, as it is put behind a line.
std::string IgnoreCommentFor(std::string_view code);

}  // namespace korvane
