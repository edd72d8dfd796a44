// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/BlockTexts.h"

namespace korvane {

std::string_view BlockTexts::text(const CatalogueFile& file, const CatalogueFile::Block& block) {
  Lines& lines = here_.file == &file ? here_ : elsewhere_;
  if (lines.file != &file) {
    const bool canBeRead = reader_.read(file.source()).empty();
    lines = {&file, canBeRead ? reader_.bytes() : std::string_view(), {}};
  }
  if (lines.begins.empty()) cut(lines);
  if (block.firstLine == 0 || block.lastLine < block.firstLine || block.lastLine >= lines.begins.size())
    return {};
  const std::size_t begin = lines.begins[block.firstLine - 1];
  return lines.text.substr(begin, lines.begins[block.lastLine] - begin);
}

void BlockTexts::cut(Lines& lines) {
  constexpr std::string_view kLineEnds = "\r\n";
  const std::string_view text = lines.text;
  lines.begins.assign(1, 0);
  for (std::size_t at = text.find_first_of(kLineEnds); at != std::string_view::npos;
       at = text.find_first_of(kLineEnds, at)) {
    at += text.substr(at).starts_with(kLineEnds) ? 2 : 1;
    lines.begins.push_back(at);
  }
  if (lines.begins.back() < text.size()) lines.begins.push_back(text.size());
}

}  // namespace korvane
