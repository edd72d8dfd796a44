// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "catalogue/Catalogue.h"
#include "check/Finding.h"

namespace korvane {

// The lines about which findings are. The last file stays at hand.
class LinesOfFiles {
 public:
  explicit LinesOfFiles(const Catalogue& catalogue) : catalogue_(catalogue) {}

  // The file's bytes without the line end; empty when they cannot be read any more.
  std::string line(const Finding& finding);

 private:
  const Catalogue& catalogue_;
  SourceReader reader_;
  const CatalogueFile* file_ = nullptr;
  std::size_t at_ = 0;  // where the line begins whose number is next
  int number_ = 1;
};

}  // namespace korvane
