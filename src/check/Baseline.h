// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "check/Finding.h"

namespace korvane {

// File, code and text of a finding between tabs, without line numbers: the same while the file is edited
// elsewhere.
std::string StableTextOf(const Finding& finding);

// Findings that are known and accepted: file, code and text of each, without line numbers, so that an edit
// above does not bring them back. One finding is silenced as often as it is listed.
class Baseline {
 public:
  // What the file's text lists; lines that list nothing are skipped. `text` is UTF-8.
  static Baseline FromText(std::string_view text);

  // Takes out what is listed, in place.
  void remove(Findings& findings) const;

 private:
  std::map<std::string, std::size_t, std::less<>> counts_;
};

// The text of a baseline file that lists the findings: a line for each, in their order, ended by LF.
std::string BaselineText(const Findings& findings);

}  // namespace korvane
