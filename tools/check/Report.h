// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

#include "check/Finding.h"

namespace korvane {

// What the report is about, besides the findings.
struct ReportContext {
  std::size_t files = 0;  // how many were checked
  std::string prefix;     // what stands before a file's path where it is read from the folder that we are in
  bool terminal = false;  // the output is seen by a person: with the lines of the files, and in colour
  bool colours = false;
  std::function<std::string(const Finding&)>
      lineOf;  // the finding's line: the file's bytes, without line end
};

// How findings are written. All of them write UTF-8 and LF.
using Report = void (*)(std::ostream& out, const Findings& findings, const ReportContext& context);

void WriteText(std::ostream& out, const Findings& findings, const ReportContext& context);
void WriteJson(std::ostream& out, const Findings& findings, const ReportContext& context);
void WriteSarif(std::ostream& out, const Findings& findings, const ReportContext& context);
void WriteGithub(std::ostream& out, const Findings& findings, const ReportContext& context);

// Where a finding is, as a person reads it: "Data/INI/Weapon.ini", "INI.big:Data/INI/Weapon.ini".
std::string ShownFile(const Finding& finding);

}  // namespace korvane
