// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file that is checked with all rules, as a baseline and as comments that silence.
#include <filesystem>
#include <vector>

#include "FuzzFolder.h"
#include "check/Baseline.h"
#include "check/Checker.h"
#include "check/IgnoreComments.h"

namespace {

using namespace korvane;

constexpr std::string_view kNames =
    "FXList FX_Bang\r\nEnd\r\nWeapon Gun\r\nEnd\r\nCommandButton Button\r\nEnd\r\nPlayerTemplate P\r\n  Side "
    "= "
    "America\r\nEnd\r\nUpgrade Up\r\nEnd\r\n";

const Checker& TheChecker() {
  static const FuzzFolder folder;
  static const Checker checker = [] {
    folder.write("Data/INI/Default.ini", kNames);
    return Checker(ReadCatalogue({folder.path()}), RuleSet::all());
  }();
  return checker;
}

// Where each line ends, its CR LF, LF or CR left out.
std::vector<std::size_t> LineEndsOf(std::string_view text) {
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    ends.push_back(i);
    if (text[i] == '\r' && text.substr(i + 1, 1) == "\n") ++i;
  }
  ends.push_back(text.size());
  return ends;
}

void CheckPlaces(const Findings& findings, std::size_t lines) {
  for (const Finding& finding : findings) {
    Require(finding.line >= 1 && static_cast<std::size_t>(finding.line) <= lines && finding.column >= 1);
    Require(!finding.text.empty() && FindRule(finding.code) != nullptr);
    for (const char c : finding.text + finding.suggestion) Require(static_cast<unsigned char>(c) >= ' ');
  }
}

// A comment at the end of its line silences a finding.
void CheckSilencing(const Finding& finding, std::string_view text, const std::vector<std::size_t>& ends) {
  std::string silenced(text);
  silenced.insert(ends[static_cast<std::size_t>(finding.line) - 1], " " + IgnoreCommentFor(finding.code));
  const auto left = TheChecker().checkText("Data/INI/Weapon.ini", silenced);
  for (const Finding& each : *left) Require(each.line != finding.line || each.code != finding.code);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto findings = TheChecker().checkText("Data/INI/Weapon.ini", text);
  Require(findings.has_value());
  const std::vector<std::size_t> ends = LineEndsOf(text);
  CheckPlaces(*findings, ends.size());
  if (!findings->empty()) CheckSilencing(findings->back(), text, ends);

  Findings left = *findings;
  Baseline::FromText(BaselineText(left)).remove(left);
  Require(left.empty());
  Baseline::FromText(text).remove(left);
  return 0;
}
