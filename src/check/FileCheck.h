// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalogue/StructureReader.h"
#include "check/BlockTexts.h"
#include "check/CheckContext.h"

namespace korvane {

// A word that names an item in a way in which no definition spells it.
struct NameUse {
  SpaceId space = kNoSpace;
  TextWord word;
  std::uint32_t line = 0;
  std::string_view key;                      // before it; the block's keyword in a header
  std::optional<std::string_view> spelling;  // of the first definition, if there is one
};

// What a block has been given: the first line of every key of its kind.
struct GivenKey {
  TextWord key;
  TextWord value;
  std::uint32_t line = 0;
};

// An inner block that has ended, as a hint at a lost or an added End.
struct EndedBlock {
  BlockHeader header;
  std::uint32_t end = 0;  // line of its End; 0: there is none
};

// A block that stands for itself.
struct OuterBlock {
  KindId kind = kNoKind;
  SpaceId space = kNoSpace;
  TextWord keyword;
  TextWord name;
  std::uint32_t line = 0;
  bool shown = false;          // its header is one for Korvane's windows: in the first column, then a space
  std::uint32_t innerEnd = 0;  // line of the first End in the first column inside the block; 0: none
  std::uint32_t lastContent = 0;  // line of its last header or key
};

// The text of one file on its way past the rules, whose functions ask it and report to it.
class FileCheck : public StructureSink {
 public:
  // All that is given must outlive the check.
  FileCheck(const CheckedFile& file, const CheckContext& context);

  // The findings in the order of the text, those left out that a comment silences. Nothing when it was
  // stopped.
  std::optional<Findings> run();

  const CheckedFile& file() const { return file_; }
  const CheckContext& context() const { return context_; }
  // The text of a block of this or another file, until the next call.
  std::string_view textOf(const DefinedNames::Definition& definition);
  bool wants(RuleId rule) const { return context_.rules.has(rule); }

  // The words of the line or header in hand.
  std::span<const TextWord> words() const { return words_; }
  // The block that stands for itself around what is in hand, if there is one.
  const OuterBlock& outer() const { return outer_; }
  // All such blocks so far.
  std::span<const OuterBlock> outerBlocks() const { return outerBlocks_; }
  // What the block in hand has been given so far of keys that are given once.
  std::span<const GivenKey> given() const;
  // Where the block in hand has been given the key in hand before, which is one to be given once, or nullptr.
  const GivenKey* givenBefore() const { return before_; }
  // Notes the tag of a module of the object in hand; the line in which it was noted before, or 0.
  std::uint32_t noteTag(std::string_view tag, std::uint32_t line);
  // The first block inside the last outer one whose End stands before (or behind) the column of its header.
  const EndedBlock& lacksEnd() const { return lacksEnd_; }
  const EndedBlock& endsTooSoon() const { return endsTooSoon_; }

  // The name that was most likely meant, or an empty text. A file in which very many names are missing lacks
  // data rather than letters: from some point on it gets no more suggestions, so that time stays bounded.
  std::string_view nearestName(SpaceId space, std::string_view name);
  // The keys and blocks that are common in blocks of this type, in the order of the tables.
  const std::vector<std::string_view>& commonWords(BlockTypeId type);

  // Adds a finding about a part of a line. The text may hold parts of the file only as Shown() gives them.
  Finding& report(RuleId rule, std::uint32_t line, const TextWord& where, std::string text);

  void blockBegins(const BlockHeader& block) override;
  void keyFound(const KeyLine& key) override;
  void blockEnds(const BlockHeader& block, const BlockEnd& end) override;
  void faultFound(const StructureFault& fault) override;
  bool goesOn() override { return !context_.stop.stop_requested(); }

 private:
  void beginOuter(const BlockHeader& block);
  void takeWords(std::string_view words, std::uint32_t column);
  void checkWords(const KeyFacts& facts, std::uint32_t line);
  void checkNames();
  void checkUse(const CatalogueFile::Use& use, const std::optional<std::string_view>& spelling);
  const GivenKey* findGiven(const KeyLine& key) const;
  void noteSlant(const BlockHeader& block, const BlockEnd& end);
  void checkPlace(const KeyLine& key);

  const CheckedFile file_;
  const CheckContext& context_;
  Findings findings_;
  BlockTexts blockTexts_;
  std::vector<TextWord> words_;
  OuterBlock outer_;
  std::vector<OuterBlock> outerBlocks_;
  std::vector<GivenKey> given_;           // of all open blocks, one after the other
  std::vector<const KeyFacts*> facts_;    // of each of these, for they are looked through at every key
  std::vector<std::size_t> givenBefore_;  // how many there were when each open block began
  const GivenKey* before_ = nullptr;
  std::unordered_map<std::string, std::uint32_t> tags_;  // in small letters, with their lines
  std::unordered_map<BlockTypeId, std::vector<std::string_view>> commonWords_;
  std::string missingName_;  // for which was asked last
  SpaceId missingSpace_ = kNoSpace;
  std::string_view nearestName_;
  std::size_t namesCompared_ = 0;
  EndedBlock lacksEnd_;
  EndedBlock endsTooSoon_;
  EndedBlock lastInner_;  // the inner block that ended last, nothing else having begun since
  bool astray_ = false;   // an inner block of the last outer one was closed too soon, and this was told
};

// Where a file's findings are: its path below the game folder with "/".
std::string FindingPath(const SourceFile& source);

// A finding of the rule about a part of a line.
Finding NewFinding(RuleId rule, const SourceFile& source, std::uint32_t line, const TextWord& where,
                   std::string text);

// Takes out what comments in the file's text silence, and puts the others in their order.
void FinishFindings(const CheckedFile& file, Findings& findings);

// "Weapon TankGun", "Draw = W3DTankDraw ModuleTag_01".
std::string HeaderText(const BlockHeader& block);

// A part of a file as a finding shows it: in UTF-8, without control characters, and not endlessly long.
std::string Shown(std::string_view bytes);
// The same between single quotation marks.
std::string Quoted(std::string_view bytes);

}  // namespace korvane
