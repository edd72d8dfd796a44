// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "stock/RandomFile.h"

namespace korvane {

// Where packed files come from. Paths are relative to the game folder, with backslashes; letter case does not
// count.
class PackSource {
 public:
  virtual ~PackSource() = default;
  virtual bool has(std::string_view path) = 0;
  virtual std::uint64_t size(std::string_view path) = 0;
  // The file's bytes in pieces. std::runtime_error when they cannot all be read.
  virtual void read(std::string_view path, const TakePiece& take) = 0;
  // All files of the source whose path begins with the folder (with a backslash at its end).
  virtual std::vector<std::string> filesBelow(std::string_view folder) = 0;
};

using PackSources = std::vector<std::unique_ptr<PackSource>>;

// Opens archives and game folders. A game folder stands for its own files and then for the archives in it, by
// name, as the game itself sees it. std::runtime_error when one cannot be opened.
PackSources OpenPackSources(const std::vector<std::string>& paths);

}  // namespace korvane
