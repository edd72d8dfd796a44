// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <bit>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "catalogue/FoldedText.h"
#include "check/EditDistance.h"
#include "check/FileCheck.h"
#include "check/NumberForm.h"
#include "check/RuleFunctions.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kModuleKey = "<module>";

// The closed lists of words in one hash table. Keys that have the same list share it.
class WordLists {
 public:
  static const WordLists& get() {
    static const WordLists lists;
    return lists;
  }

  bool has(const KeyFacts& facts, std::string_view word) const {
    return slots_[placeOf(facts.words.data(), word)].list != nullptr;
  }

 private:
  using List = const std::string_view*;
  struct Slot {
    List list = nullptr;
    std::string_view word;
  };

  WordLists() {
    const GameStructure& structure = GameStructure::get();
    std::map<List, std::span<const std::string_view>> lists;
    std::size_t count = 0;
    for (std::size_t id = 0; id < structure.keyCount(); ++id) {
      const auto words = structure.key(static_cast<KeyId>(id)).words;
      if (lists.emplace(words.data(), words).second) count += words.size();
    }
    slots_.resize(std::bit_ceil(count * 2));
    for (const auto& [list, words] : lists)
      for (const std::string_view word : words) slots_[placeOf(list, word)] = {list, word};
  }

  // Where the word stands in the table, or where it would.
  std::size_t placeOf(List list, std::string_view word) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = (FoldedHash(word) ^ (std::hash<List>()(list) * 0x9E3779B1U)) & mask;
    const auto isAnother = [&](const Slot& slot) {
      return slot.list != nullptr && (slot.list != list || !EqualFolded(slot.word, word));
    };
    while (isAnother(slots_[place])) place = (place + 1) & mask;
    return place;
  }

  std::vector<Slot> slots_;  // its size is a power of two
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
