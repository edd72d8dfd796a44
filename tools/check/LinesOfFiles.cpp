// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/LinesOfFiles.h"

#include <algorithm>

namespace korvane {

std::string LinesOfFiles::line(const Finding& finding) {
  constexpr std::string_view kLineEnds = "\r\n";
  const CatalogueFile* file = catalogue_.file(finding.file);
  if (file == nullptr) return {};
  if (file != file_ && !reader_.read(file->source()).empty()) return {};
  if (file != file_ || finding.line < number_) {
    at_ = 0;
    number_ = 1;
  }
  file_ = file;
  const std::string_view text = reader_.bytes();
  for (; number_ < finding.line && at_ < text.size(); ++number_) {
    at_ = std::min(text.find_first_of(kLineEnds, at_), text.size());
    at_ += text.substr(at_).starts_with(kLineEnds) ? 2 : 1;
  }
  if (number_ < finding.line || at_ >= text.size()) return {};
  return std::string(text.substr(at_, text.find_first_of(kLineEnds, at_) - at_));
}

}  // namespace korvane
