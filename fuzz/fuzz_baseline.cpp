// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a baseline file, and each of its lines as a finding.
#include <algorithm>
#include <array>

#include "FuzzFolder.h"
#include "check/Baseline.h"
#include "ini/IniText.h"

namespace {

using namespace korvane;

constexpr std::array<std::string_view, 3> kCodes = {"missing-name", "duplicate", "stray-end"};

// As the checker makes them: no control characters, and a path below the game folder.
Findings FindingsOf(std::string_view bytes) {
  Findings findings;
  ForEachPiece(bytes, "\n", [&](std::string_view line) {
    Finding finding{.code = kCodes[line.size() % kCodes.size()], .file = "Data/INI/", .line = 1};
    std::string* part = &finding.file;
    for (const char byte : line) {
      if (byte == '\t') {
        part = &finding.text;
      } else if (static_cast<unsigned char>(byte) >= ' ') {
        part->push_back(byte);
      }
    }
    findings.push_back(std::move(finding));
  });
  return findings;
}

std::size_t LeftBy(const Baseline& baseline, Findings findings) {
  baseline.remove(findings);
  return findings.size();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Findings findings = FindingsOf(bytes);
  const Baseline own = Baseline::FromText(BaselineText(findings));
  Require(LeftBy(own, findings) == 0);
  Findings twice = findings;
  twice.insert(twice.end(), findings.begin(), findings.end());
  Require(LeftBy(own, twice) == findings.size());
  Require(LeftBy(Baseline::FromText(BaselineText({})), findings) == findings.size());
  const auto listed = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
  Require(LeftBy(Baseline::FromText(bytes), findings) + listed >= findings.size());
  return 0;
}
