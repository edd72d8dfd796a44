// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "check/EditDistance.h"
#include "check/FileCheck.h"
#include "check/NumberForm.h"
#include "check/RuleFunctions.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kModuleKey = "<module>";

using FoldedSet = std::unordered_set<std::string_view, HashFolded, SameFolded>;

// The closed lists of words, by the keys that have them.
class WordLists {
 public:
  static const WordLists& get() {
    static const WordLists lists;
    return lists;
  }

  bool has(const KeyFacts& facts, std::string_view word) const {
    return lists_[facts.id] == nullptr || lists_[facts.id]->contains(word);
  }

 private:
  WordLists() {
    const GameStructure& structure = GameStructure::get();
    lists_.resize(structure.keyCount());
    for (std::size_t id = 0; id < lists_.size(); ++id) {
      const auto words = structure.key(static_cast<KeyId>(id)).words;
      if (!words.empty()) lists_[id] = std::make_unique<FoldedSet>(words.begin(), words.end());
    }
  }

  std::vector<std::unique_ptr<FoldedSet>> lists_;
};

// The nearest of the candidates that the word may be a misspelling of, letter case as `Spelt` has it.
template <typename Candidates, typename Spelt>
std::string_view Nearest(std::string_view word, const Candidates& candidates, Spelt spelt) {
  std::string_view nearest;
  std::size_t allowed = EditsAllowed(word.size());
  for (const std::string_view candidate : candidates) {
    if (allowed == 0) break;
    const std::size_t edits = EditsBetween(spelt(word), spelt(candidate), allowed);
    if (edits > allowed || SameSeries(word, candidate)) continue;
    nearest = candidate;
    allowed = edits == 0 ? 0 : edits - 1;
  }
  return nearest;
}

std::string Meant(std::string_view suggestion) {
  return suggestion.empty() ? "" : "; is '" + std::string(suggestion) + "' meant?";
}

std::string BlockName(BlockTypeId type) {
  const BlockType& block = GameStructure::get().type(type);
  return std::string(block.module.empty() ? block.keyword : block.module);
}

// Of a module that is not listed no key is known.
bool IsInUnlistedModule(BlockTypeId type) {
  return GameStructure::get().type(type).path.find("=*") != std::string::npos;
}

bool IsWordOfALetter(std::string_view word) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return !word.empty() && isLetter(word.front());
}

void CheckWord(FileCheck& check, const KeyFacts& facts, std::uint32_t line, TextWord word) {
  if (word.text.starts_with('+') || word.text.starts_with('-')) {
    word.text.remove_prefix(1);
    ++word.column;
  }
  if (!IsWordOfALetter(word.text) || WordLists::get().has(facts, word.text)) return;
  const std::string_view meant = Nearest(word.text, facts.words, ToLowerAscii);
  const RuleId rule = meant.empty() ? RuleId::wordUnknown : RuleId::wordTypo;
  if (!check.wants(rule)) return;
  check.report(rule, line, word, "unknown word " + Quoted(word.text) + Meant(meant)).suggestion = meant;
}

}  // namespace

void CheckKeyIsKnown(FileCheck& check, const KeyLine& key) {
  const bool known = key.facts != nullptr && key.facts->known;
  if (known && (key.key.text == key.facts->key || key.facts->key.ends_with('#'))) return;
  if (key.block == nullptr || IsInUnlistedModule(key.block->type)) return;
  const std::string_view meant = known ? key.facts->key
                                       : Nearest(key.key.text, check.commonWords(key.block->type),
                                                 [](std::string_view text) { return text; });
  const RuleId rule = meant.empty() ? RuleId::keyUnknown : RuleId::keyTypo;
  if (!check.wants(rule)) return;
  check
      .report(rule, key.place.line, key.key,
              "unknown key " + Quoted(key.key.text) + " in " + BlockName(key.block->type) + Meant(meant))
      .suggestion = meant;
}

void CheckWordsAreKnown(FileCheck& check, const KeyFacts& facts, std::uint32_t line) {
  if (facts.words.empty()) return;
  const auto words = check.words();
  const std::size_t count = facts.key == kModuleKey ? std::min<std::size_t>(1, words.size()) : words.size();
  for (const TextWord& word : words.first(count)) CheckWord(check, facts, line, word);
}

void CheckNumbers(FileCheck& check, const KeyFacts& facts, std::uint32_t line) {
  if (!facts.form) return;
  for (const TextWord& word : check.words()) {
    if (!IsMisshapenNumber(word.text)) continue;
    check.report(RuleId::numberForm, line, word,
                 Shown(facts.key) + ": " + Quoted(word.text) + " is not a well-formed number");
  }
}

}  // namespace korvane
