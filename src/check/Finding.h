// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

enum class Level : std::uint8_t { note, warning, error };

// "error", "warning", "note".
std::string_view LevelName(Level level);

// A line of a file. The file is a path below the game folder in UTF-8 with "/"; lines count from 1.
struct OtherPlace {
  std::string file;
  int line = 0;

  bool operator==(const OtherPlace&) const = default;
};

// One thing that the checker has to say. Texts are UTF-8; lines and columns count from 1, columns and lengths
// in bytes of the file.
struct Finding {
  std::string_view code{};  // of its rule, for example "missing-name"
  Level level = Level::error;
  std::string file{};     // below the game folder, with "/"
  std::string archive{};  // the archive's file name where the text is in one, else empty
  int line = 0;
  int column = 0;
  int length = 0;  // of what is marked; 0 only at the end of a file
  std::string text{};
  std::string suggestion{};  // what stands there should most likely be this; empty where nothing is near
  OtherPlace other{};        // the first definition, the open block's header; line 0 where there is none
  std::string group{};       // the same for findings that one mend mends (one missing name); else empty

  bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

}  // namespace korvane
