// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueFile.h"

namespace korvane {

// The texts of blocks, in one file whose text is at hand and in others. The last of the others stays at hand.
class BlockTexts {
 public:
  BlockTexts() = default;  // none is at hand
  BlockTexts(const CatalogueFile& file, std::string_view text) : here_{&file, text, {}} {}

  // From the beginning of the header's line to the end of the last line, until the next call. Empty when the
  // file cannot be read or does not have these lines any more.
  std::string_view text(const CatalogueFile& file, const CatalogueFile::Block& block);

 private:
  struct Lines {
    const CatalogueFile* file = nullptr;
    std::string_view text;
    std::vector<std::size_t> begins;  // of each line, and behind the last one; filled at first need
  };

  static void cut(Lines& lines);

  SourceReader reader_;
  Lines here_;
  Lines elsewhere_;
};

}  // namespace korvane
