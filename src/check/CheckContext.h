// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stop_token>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "check/DefinedNames.h"
#include "check/Rules.h"

namespace korvane {

// The functions of the rules that are to be followed, each once.
class ActiveFunctions {
 public:
  explicit ActiveFunctions(const RuleSet& rules);

  template <typename Function>
  const std::vector<Function>& of() const {
    return std::get<std::vector<Function>>(lists_);
  }

 private:
  template <typename Variant>
  struct Lists;
  template <typename... Functions>
  struct Lists<std::variant<Functions...>> {
    using Type = std::tuple<std::vector<Functions>...>;
  };

  Lists<RuleFunction>::Type lists_;
};

// What is the same for all files of a check. Threads share it.
struct CheckContext {
  const RuleSet& rules;
  const ActiveFunctions& functions;
  const DefinedNames& names;
  const std::vector<std::string>& sides;  // of the player templates
  std::stop_token stop{};
};

// A file that is checked.
struct CheckedFile {
  const CatalogueFile& known;
  std::string_view text;  // what `known` was made of
};

}  // namespace korvane
