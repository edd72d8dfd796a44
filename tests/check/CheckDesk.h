// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "check/Checker.h"
#include "support/GameFolder.h"

namespace korvane {

// "Weapon.ini:3:12:8 error missing-name": place and length in the file, level and code.
inline std::string Brief(const Finding& finding) {
  constexpr std::string_view kFolder = "Data/INI/";
  const std::string file =
      finding.file.starts_with(kFolder) ? finding.file.substr(kFolder.size()) : finding.file;
  return file + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column) + ":" +
         std::to_string(finding.length) + " " + std::string(LevelName(finding.level)) + " " +
         std::string(finding.code);
}

inline std::vector<std::string> Brief(const Findings& findings) {
  std::vector<std::string> texts;
  for (const Finding& finding : findings) texts.push_back(Brief(finding));
  return texts;
}

inline Findings CheckFolder(const GameFolder& folder, const RuleSet& rules = RuleSet::usual(),
                            const std::vector<std::string>& also = {}) {
  return *Checker(ReadCatalogue({folder.path(), also}), rules).check();
}

}  // namespace korvane
