// SPDX-License-Identifier: GPL-3.0-or-later
#include "Answers.h"

#include "catalogue/NameSearch.h"

namespace korvane {

namespace {

SpaceId SpaceOf(KindId kind) {
  return kind == kNoKind ? kNoSpace : GameStructure::get().kinds()[kind].space;
}

// What a used name stands for: the kind of its definition, else the one after which its space is named.
std::string_view KindOfUse(const Catalogue& catalogue, const FoundUse& use) {
  const GameStructure& structure = GameStructure::get();
  const auto definitions = catalogue.definitions(use.space, use.name);
  return structure.kinds()[definitions.empty() ? structure.kindOfSpace(use.space) : definitions.front().kind]
      .name;
}

}  // namespace

void WriteDefinitions(const Catalogue& catalogue, KindId kind, const std::string& name,
                      AnswerWriter& writer) {
  for (const FoundDefinition& each : catalogue.definitions(SpaceOf(kind), name))
    if (kind == kNoKind || each.kind == kind) writer.write(each);
}

void WriteUses(const Catalogue& catalogue, KindId kind, const std::string& name, AnswerWriter& writer) {
  for (const FoundUse& each : catalogue.uses(SpaceOf(kind), name))
    writer.write(each, KindOfUse(catalogue, each));
}

void WriteMatches(const Catalogue& catalogue, KindId kind, const std::string& text, AnswerWriter& writer) {
  NameSearch search{.pattern = text};
  if (kind != kNoKind) search.kinds = {kind};
  for (const NameHit& hit : SearchNames(catalogue, search).hits) writer.write(hit.definition);
}

void WriteAll(const Catalogue& catalogue, KindId kind, AnswerWriter& writer) {
  for (const auto& file : catalogue.files())
    for (const CatalogueFile::Definition& each : file->definitions())
      if (kind == kNoKind || each.kind == kind) writer.write(FoundIn(*file, each));
}

}  // namespace korvane
