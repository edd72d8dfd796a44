// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/FolderCheck.h"

#include <algorithm>
#include <iterator>

#include "check/FileCheck.h"

namespace korvane {

void FolderCheck::run(std::vector<Findings>& ofFiles) {
  for (const FolderFunction check : context_.functions.of<FolderFunction>()) {
    if (!context_.stop.stop_requested()) check(*this);
  }
  SourceReader reader;
  for (std::size_t i = 0; i < files_.size(); ++i) {
    const auto more = found_.find(files_[i]);
    if (more == found_.end() || !reader.read(files_[i]->source()).empty()) continue;
    std::ranges::move(more->second, std::back_inserter(ofFiles[i]));
    FinishFindings({*files_[i], reader.bytes()}, ofFiles[i]);
  }
}

void FolderCheck::report(RuleId rule, const CatalogueFile& file, const CatalogueFile::Definition& definition,
                         std::string text) {
  const std::uint32_t line = file.blocks()[definition.block].firstLine;
  found_[&file].push_back(NewFinding(rule, file.source(), line,
                                     {file.name(definition.name), definition.column}, std::move(text)));
}

}  // namespace korvane
