// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "check/CheckContext.h"

namespace korvane {

// All files of a check on their way past the rules that look at more than one file.
class FolderCheck {
 public:
  // All that is given must outlive the check.
  FolderCheck(const Catalogue& catalogue, const std::vector<const CatalogueFile*>& files,
              const CheckContext& context)
      : catalogue_(catalogue), files_(files), context_(context) {}

  // Adds what is found to the findings of the files.
  void run(std::vector<Findings>& ofFiles);

  const Catalogue& catalogue() const { return catalogue_; }
  const std::vector<const CatalogueFile*>& files() const { return files_; }
  const CheckContext& context() const { return context_; }

  // Adds a finding about the name of a definition.
  void report(RuleId rule, const CatalogueFile& file, const CatalogueFile::Definition& definition,
              std::string text);

 private:
  const Catalogue& catalogue_;
  const std::vector<const CatalogueFile*>& files_;
  const CheckContext& context_;
  std::map<const CatalogueFile*, Findings> found_;
};

}  // namespace korvane
