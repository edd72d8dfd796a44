// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineTexts.h"

namespace korvane {

std::string_view LineTexts::line(const SourceFile& file, std::uint32_t number) {
  if (!(file == file_)) {
    reader_.read(file);  // what cannot be read has no lines
    file_ = file;
    number_ = 0;
    rest_ = LineCutter(reader_.bytes());
  } else if (number < number_) {
    number_ = 0;
    rest_ = LineCutter(reader_.bytes());
  }
  while (number_ < number) {
    if (!rest_.next(line_)) return {};
    ++number_;
  }
  return number == 0 ? std::string_view() : line_;
}

}  // namespace korvane
