// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "check/Finding.h"

namespace korvane {

class FileCheck;
class FolderCheck;
struct BlockEnd;
struct BlockHeader;
struct KeyFacts;
struct KeyLine;
struct NameUse;
struct StructureFault;

// The rules in the order of their table.
enum class RuleId : std::uint8_t {
  missingName,
  openBlock,
  strayEnd,
  looseText,
  keyTypo,
  wordTypo,
  numberForm,
  keyTwice,
  duplicate,
  tagTwice,
  buttonLacks,
  sideTypo,
  shadowed,
  cutShort,
  unixLines,
  unused,
  letterCase,
  noEffect,
  keyUnknown,
  wordUnknown,
  sameTwice
};

// What finds the things that a rule is about, by what it is shown. Several rules may share a function.
using KeyFunction = void (*)(FileCheck&, const KeyLine&);
using NameFunction = void (*)(FileCheck&, const NameUse&);
using WordsFunction = void (*)(FileCheck&, const KeyFacts&, std::uint32_t line);  // of a value or a header
using HeaderFunction = void (*)(FileCheck&, const BlockHeader&);
using BlockFunction = void (*)(FileCheck&, const BlockHeader&, const BlockEnd&);
using FaultFunction = void (*)(FileCheck&, const StructureFault&);
using TextFunction = void (*)(FileCheck&);      // a whole file, at its end
using FolderFunction = void (*)(FolderCheck&);  // all files, at the end
using RuleFunction = std::variant<KeyFunction, NameFunction, WordsFunction, HeaderFunction, BlockFunction,
                                  FaultFunction, TextFunction, FolderFunction>;

// What the checker looks for. A rule is an entry of one table, a function, and a page of the help.
struct Rule {
  RuleId id;
  std::string_view code;
  Level level;               // of its findings, unless the rule says otherwise
  bool onRequest;            // off unless asked for
  std::string_view meaning;  // one sentence
  std::string_view page;     // of the help
  RuleFunction function;
};

std::span<const Rule> AllRules();
const Rule& RuleOf(RuleId id);
// The rule with the code, letter case significant.
const Rule* FindRule(std::string_view code);

// Which rules are to be followed.
class RuleSet {
 public:
  static RuleSet none() { return {}; }
  static RuleSet usual();  // all that are not on request
  static RuleSet all();

  bool has(RuleId id) const { return rules_.test(static_cast<std::size_t>(id)); }
  void add(RuleId id) { rules_.set(static_cast<std::size_t>(id)); }
  void remove(RuleId id) { rules_.reset(static_cast<std::size_t>(id)); }
  // One of the two.
  bool hasEither(RuleId a, RuleId b) const { return has(a) || has(b); }

 private:
  std::bitset<32> rules_;
};

}  // namespace korvane
