// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the text of an INI file for the catalogue, held against a slow second version of it. The
// input's first line is what somebody looks for.
#include <cstdint>

#include "FuzzFolder.h"
#include "catalogue/BlockTree.h"
#include "catalogue/NameSearch.h"
#include "support/SlowCatalogue.h"

namespace {

using namespace korvane;

constexpr std::size_t kLongestInput = 4096;  // the second version is slow

// A name that fits has its marked letters in the order of the pattern.
void CheckSearch(const Catalogue& catalogue, const std::string& pattern) {
  const NameMatcher matcher(pattern);
  for (const NameHit& hit : SearchNames(catalogue, {.pattern = pattern}).hits) {
    std::size_t letters = 0;
    std::size_t behind = 0;
    for (const NamePart& part : matcher.parts(hit.definition.name)) {
      Require(part.begin >= behind && part.begin + part.size <= hit.definition.name.size());
      behind = part.begin + part.size;
      letters += part.size;
    }
    Require(letters <= pattern.size());
  }
}

void CheckAnswers(const Catalogue& catalogue) {
  for (const auto& file : catalogue.files()) {
    for (const CatalogueFile::Use& use : file->uses())
      Require(!catalogue.uses(file->space(use.name), file->name(use.name)).empty());
    for (const CatalogueFile::Definition& definition : file->definitions())
      Require(catalogue.defines(file->space(definition.name), file->name(definition.name)));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kLongestInput) return 0;
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string text = input.substr(std::min(end + 1, input.size()));
  const auto file = CatalogueFile::read({}, text);
  Require(FactsOf(*file) == SlowFacts(text));
  Require(ReadBlocks(text).size() == file->blocks().size());
  const Catalogue catalogue({}, {file}, {});
  CheckSearch(catalogue, input.substr(0, end));
  CheckAnswers(catalogue);
  return 0;
}
