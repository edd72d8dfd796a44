// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "catalogue/LineCutter.h"
#include "catalogue/SourceFiles.h"

namespace korvane {

// The lines in which something was found, as the files have them now. Quick when they are asked for file by
// file and in the order of the text, as answers of a catalogue come.
class LineTexts {
 public:
  // The file's bytes without the line end, until the next call; empty when there is no such line any more.
  // Numbers count from 1.
  std::string_view line(const SourceFile& file, std::uint32_t number);

 private:
  SourceReader reader_;
  SourceFile file_;
  LineCutter rest_{{}};
  std::string_view line_;
  std::uint32_t number_ = 0;  // of line_; 0 before the first one
};

}  // namespace korvane
