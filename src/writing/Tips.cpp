// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/Tips.h"

#include <algorithm>
#include <array>

#include "catalogue/FoldedText.h"
#include "catalogue/LineCutter.h"
#include "catalogue/LineTexts.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

constexpr std::size_t kMostWords = 12;           // of a list that are told
constexpr std::uint64_t kMostBytes = 4'000'000;  // of files that are read for an example
constexpr std::size_t kLinesLookedAt = 200;      // of a block for its first lines

struct OutsideText {
  Outside outside;
  const char* text;
};
constexpr std::array kOutsideTexts = {
    OutsideText{Outside::animation, "the name of an animation"},
    OutsideText{Outside::bone, "the name of a bone of the model"},
    OutsideText{Outside::file, "the name of a file"},
    OutsideText{Outside::label, "a label of the game's texts"},
    OutsideText{Outside::model, "the name of a model"},
    OutsideText{Outside::sound, "the name of a sound file"},
    OutsideText{Outside::texture, "the name of a texture"},
    OutsideText{Outside::window, "the name of a window"},
};

bool IsBlank(char byte) {
  return static_cast<unsigned char>(byte) <= ' ';
}

// Without its comment and the blanks around it.
std::string_view Statement(std::string_view line) {
  line = line.substr(0, line.find(';'));
  for (std::size_t at = line.find("//"); at != line.npos; at = line.find("//", at + 1)) {
    if (at == 0 || SeparatesWords(line[at - 1])) line = line.substr(0, at);
  }
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  return line;
}

std::string_view FirstWord(std::string_view statement) {
  return statement.substr(
      0, static_cast<std::size_t>(std::ranges::find_if(statement, SeparatesWords) - statement.begin()));
}

std::string NamesText(const KeyFacts& facts) {
  const GameStructure& structure = GameStructure::get();
  std::string text;
  std::vector<SpaceId> told;
  for (const Reference& reference : facts.references) {
    if (std::ranges::find(told, reference.space) != told.end()) continue;
    told.push_back(reference.space);
    const KindId kind = structure.kindOfSpace(reference.space);
    if (kind == kNoKind) continue;
    text += (text.empty() ? "the name of: " : ", ") + std::string(structure.kinds()[kind].name);
  }
  return text;
}

std::string WordsText(const KeyFacts& facts) {
  if (facts.words.empty()) return {};
  if (IsChoice(facts)) return "Yes or No";
  std::string text = "words such as ";
  const std::size_t told = std::min(facts.words.size(), kMostWords);
  for (std::size_t i = 0; i < told; ++i) text += (i == 0 ? "" : ", ") + std::string(facts.words[i]);
  if (told < facts.words.size()) text += " and " + std::to_string(facts.words.size() - told) + " more";
  return text;
}

// "PRIMARY, SECONDARY or TERTIARY, then ", as far as it leads the rest.
std::string LeadingText(const KeyFacts& facts) {
  std::string text;
  for (const LeadingWords& leading : facts.leading) {
    const std::size_t told = std::min(leading.words.size(), kMostWords);
    for (std::size_t i = 0; i < told; ++i) {
      const bool isLast = i + 1 == leading.words.size();
      text += (i == 0 ? "" : isLast ? " or " : ", ") + std::string(leading.words[i]);
    }
    text += told < leading.words.size() ? " ..., then " : ", then ";
  }
  return text;
}

std::string NumbersText(const KeyFacts& facts) {
  const std::string count = std::to_string(facts.numbers);
  if (facts.type == ValueType::labelled) return count + " numbers behind labels, as in X:1";
  if (facts.type != ValueType::number) return {};
  return facts.numbers > 1 ? count + " numbers" : "a number";
}

std::string OutsideTextOf(const KeyFacts& facts) {
  const auto found = std::ranges::find(kOutsideTexts, facts.outside, &OutsideText::outside);
  return found == kOutsideTexts.end() ? std::string() : found->text;
}

std::optional<KeyExample> ExampleIn(const CatalogueFile& file, const WantedExample& wanted,
                                    std::string_view text) {
  LineCutter lines(text);
  std::uint32_t number = 0;
  for (std::string_view line; lines.next(line);) {
    ++number;
    const std::string_view statement = Statement(line);
    const std::string_view word = FirstWord(statement);
    if (!EqualFolded(word, wanted.key) || statement.find('=') == statement.npos) continue;
    const std::uint32_t around = file.blockAt(number);
    if (around == CatalogueFile::kNone || file.blocks()[around].type != wanted.block) continue;
    const std::string_view header = file.header(file.outermost(around));
    if (header != wanted.notIn) return KeyExample{std::string(statement), std::string(header)};
  }
  return std::nullopt;
}

bool HasBlock(const CatalogueFile& file, BlockTypeId type) {
  return std::ranges::any_of(file.blocks(),
                             [type](const CatalogueFile::Block& each) { return each.type == type; });
}

}  // namespace

std::string WhatItTakes(const KeyFacts& facts) {
  std::string text;
  for (const std::string& part :
       {WordsText(facts), NamesText(facts), OutsideTextOf(facts), NumbersText(facts)}) {
    if (!part.empty()) text += (text.empty() ? "" : ", or ") + part;
  }
  if (text.empty() && facts.type == ValueType::name) text = "a name";
  if (text.empty() && facts.type == ValueType::word) text = "a word";
  return text.empty() ? text : "Takes " + LeadingText(facts) + text + '.';
}

std::optional<KeyExample> ExampleOf(const Catalogue& catalogue, const WantedExample& wanted) {
  SourceReader reader;
  std::uint64_t read = 0;
  const auto look = [&](const CatalogueFile& file) -> std::optional<KeyExample> {
    if (!HasBlock(file, wanted.block) || !reader.read(file.source()).empty()) return std::nullopt;
    read += reader.bytes().size();
    return ExampleIn(file, wanted, reader.bytes());
  };
  const CatalogueFile* own = wanted.path.empty() ? nullptr : catalogue.file(wanted.path);
  if (own != nullptr) {
    if (auto example = look(*own)) return example;
  }
  for (const auto& file : catalogue.files()) {
    if (file.get() == own) continue;
    if (auto example = look(*file)) return example;
    if (read > kMostBytes) break;
  }
  return std::nullopt;
}

std::vector<std::string> FirstLines(std::string_view block, std::size_t most) {
  std::vector<std::string> found;
  LineCutter lines(block);
  std::string_view line;
  lines.next(line);  // the header
  while (found.size() < most && lines.next(line)) {
    const std::string_view statement = Statement(line);
    if (EqualFolded(FirstWord(statement), "end")) break;
    if (!statement.empty()) found.emplace_back(statement);
  }
  return found;
}

std::vector<std::string> FirstLinesOf(const FoundDefinition& item, std::size_t most) {
  const CatalogueFile::Block& block = item.file->blocks()[item.block];
  const auto behind = std::min<std::size_t>(block.lastLine, block.firstLine + kLinesLookedAt);
  LineTexts texts;
  std::string lines;
  for (auto number = block.firstLine; number <= behind; ++number) {
    lines.append(texts.line(item.file->source(), number)).append("\n");
  }
  return FirstLines(lines, most);
}

}  // namespace korvane
