// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// A change of a text: bytes of one line become others. Bytes are a file's; new line ends are CR LF.
struct TextEdit {
  int line = 1;    // from 1; what is behind the text's end stands for its last line
  int column = 1;  // from 1; what is behind the line's end stands for that end
  int length = 0;  // of what goes; it stops at the line's end
  std::string text{};

  bool operator==(const TextEdit&) const = default;
};

// Says what to change in a file, whose bytes it is shown: changes that do not overlap, in any order. A
// character for which files have no byte is shown as '?'.
using EditPlan = std::function<std::vector<TextEdit>(std::string_view bytes)>;

// Gives a file's new text from the text that it has, both in UTF-8; nothing: no change.
using TextRewrite = std::function<std::optional<std::string>(std::string_view utf8)>;

}  // namespace korvane
