// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/Baseline.h"

#include <algorithm>

#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kTitle = "# Accepted findings of korvane-check: file, code, text\n";
constexpr std::string_view kLineWord = "line ";
constexpr std::string_view kDigits = "0123456789";

// "Weapon A in line 40" as "Weapon A in line".
std::string WithoutLineNumbers(std::string text) {
  for (std::size_t at = text.find(kLineWord); at != std::string::npos; at = text.find(kLineWord, at + 1)) {
    const std::size_t number = at + kLineWord.size();
    const std::size_t end = std::min(text.find_first_not_of(kDigits, number), text.size());
    if (end > number) text.erase(number - 1, end - number + 1);
  }
  return text;
}

}  // namespace

std::string StableTextOf(const Finding& finding) {
  std::string entry = finding.archive.empty() ? "" : finding.archive + ":";
  entry.append(finding.file).append("\t").append(finding.code).append("\t");
  return entry + WithoutLineNumbers(finding.text);
}

Baseline Baseline::FromText(std::string_view text) {
  Baseline baseline;
  ForEachPiece(text, "\n", [&](std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with('#') || std::count(line.begin(), line.end(), '\t') != 2) return;
    ++baseline.counts_[std::string(line)];
  });
  return baseline;
}

void Baseline::remove(Findings& findings) const {
  auto left = counts_;
  std::erase_if(findings, [&](const Finding& finding) {
    const auto listed = left.find(StableTextOf(finding));
    if (listed == left.end() || listed->second == 0) return false;
    --listed->second;
    return true;
  });
}

std::string BaselineText(const Findings& findings) {
  std::string text(kTitle);
  for (const Finding& finding : findings) text.append(StableTextOf(finding)).append("\n");
  return text;
}

}  // namespace korvane
