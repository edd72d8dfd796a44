// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "stock/RandomFile.h"

namespace korvane {

// A stock database or an archive: files one after another, of which no one is ever
// in memory as a whole.
class Container {
 public:
  virtual ~Container() = default;
  virtual std::int64_t count() = 0;
  virtual void goTo(std::int64_t index) = 0;  // from 0
  virtual std::string path() = 0;             // relative to the game folder, in UTF-8
  // The file's bytes in pieces, of which some may come before a std::runtime_error.
  virtual void read(const TakePiece& take) = 0;
};

// Opens what lies at the path. std::runtime_error when it is neither, or damaged.
std::unique_ptr<Container> OpenContainer(const std::string& path);

// "1 file", "2 files".
std::string Counted(std::uint64_t count, const std::string& noun);

}  // namespace korvane
