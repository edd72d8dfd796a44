// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "check/CheckContext.h"
#include "check/Finding.h"

namespace korvane {

struct CheckOptions {
  unsigned jobs =
      1;  // how many files are checked at a time, each in a thread; 0: as many as there are processors
  // Told from time to time how many files are done, of how many; by one thread at a time.
  std::function<void(std::size_t, std::size_t)> progress{};
};

// Looks for what the game would stumble over. The checker never changes, so that threads may share it.
class Checker {
 public:
  explicit Checker(CataloguePtr catalogue, RuleSet rules = RuleSet::usual());

  // The files of the game folder, those in its archives left out; of an archive that is checked in place of a
  // folder, its files. Findings are in the order of the files and of their texts. Nothing when it was
  // stopped. Files that cannot be read any more have none.
  std::optional<Findings> check(const CheckOptions& options = {}, const std::stop_token& stop = {}) const;

  // One file as it is edited: this text in place of the file's own, which need not exist. The path is one
  // below the game folder, with slashes of either kind. Nothing when it was stopped.
  std::optional<Findings> checkText(std::string_view path, std::string_view text,
                                    const std::stop_token& stop = {}) const;

  const Catalogue& catalogue() const { return *catalogue_; }
  // Those that check() looks at.
  const std::vector<const CatalogueFile*>& files() const { return files_; }

 private:
  CheckContext context(const DefinedNames& names, const std::stop_token& stop) const;

  CataloguePtr catalogue_;
  RuleSet rules_;
  ActiveFunctions functions_;
  DefinedNames names_;
  std::vector<std::string> sides_;
  std::vector<const CatalogueFile*> files_;
};

}  // namespace korvane
