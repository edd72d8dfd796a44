// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>

#include "check/Report.h"
#include "files/JsonText.h"

namespace korvane {

namespace {

JsonObject ObjectOf(const Finding& finding) {
  JsonObject object;
  object.add("file", finding.file);
  if (!finding.archive.empty()) object.add("archive", finding.archive);
  object.add("line", finding.line).add("column", finding.column).add("length", finding.length);
  object.add("code", finding.code).add("level", LevelName(finding.level)).add("text", finding.text);
  if (!finding.suggestion.empty()) object.add("suggestion", finding.suggestion);
  if (finding.other.line > 0)
    object.add("other", JsonObject().add("file", finding.other.file).add("line", finding.other.line));
  return object;
}

}  // namespace

void WriteJson(std::ostream& out, const Findings& findings, const ReportContext& /*context*/) {
  for (const Finding& finding : findings) out << ObjectOf(finding).text() << '\n';
}

}  // namespace korvane
