// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/FindingEdits.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <variant>

#include "check/Baseline.h"
#include "check/IgnoreComments.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

// The column behind the line's last character.
int ColumnBehind(std::string_view bytes, int line) {
  std::size_t start = 0;
  for (; line > 1 && start < bytes.size(); --line) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
    start = std::min(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1), bytes.size());
  }
  return static_cast<int>(std::min(bytes.find_first_of("\r\n", start), bytes.size()) - start) + 1;
}

TextEdit EditOf(Mend mend, const Finding& finding, std::string_view bytes) {
  if (mend == Mend::ignore)
    return {finding.line, ColumnBehind(bytes, finding.line), 0, " " + IgnoreCommentFor(finding.code)};
  return {finding.line, finding.column, finding.length, ToBytes(QString::fromStdString(finding.suggestion))};
}

// What is found only by looking at all files is about a definition: where the text has it now.
std::optional<Finding> FoundAgain(const Finding& finding, const CatalogueFile* before,
                                  std::string_view bytes) {
  const Rule* rule = FindRule(finding.code);
  if (before == nullptr || rule == nullptr || !std::holds_alternative<FolderFunction>(rule->function))
    return std::nullopt;
  const auto now = CatalogueFile::read(before->source(), bytes);
  const auto lineOf = [](const CatalogueFile& file, const CatalogueFile::Definition& definition) {
    return static_cast<int>(file.blocks()[definition.block].firstLine);
  };
  for (const CatalogueFile::Definition& old : before->definitions()) {
    if (lineOf(*before, old) != finding.line) continue;
    for (const auto id : now->spellings(before->space(old.name), before->name(old.name))) {
      if (now->definitionsOf(id).empty()) continue;
      Finding moved = finding;
      moved.line = lineOf(*now, now->definitions()[now->definitionsOf(id).front()]);
      return moved;
    }
  }
  return std::nullopt;
}

}  // namespace

EditPlan PlanOf(Mend mend, Findings findings, std::shared_ptr<const Checker> checker) {
  return [mend, findings = std::move(findings), checker = std::move(checker)](std::string_view bytes) {
    std::vector<TextEdit> edits;
    const Findings now = checker->checkText(findings.front().file, bytes).value_or(Findings());
    for (const Finding& each : findings) {
      const Finding* nearest = NearestOf(now, each);
      const std::optional<Finding> found =
          nearest != nullptr ? *nearest : FoundAgain(each, checker->catalogue().file(each.file), bytes);
      if (!found || (mend == Mend::suggest && found->suggestion.empty())) continue;
      TextEdit edit = EditOf(mend, *found, bytes);
      if (std::ranges::find(edits, edit) == edits.end()) edits.push_back(std::move(edit));
    }
    return edits;
  };
}

const Finding* NearestOf(const Findings& findings, const Finding& wanted) {
  const std::string stable = StableTextOf(wanted);
  const Finding* nearest = nullptr;
  const auto distance = [&wanted](const Finding& each) { return std::abs(each.line - wanted.line); };
  for (const Finding& each : findings) {
    const bool nearer = nearest == nullptr || distance(each) < distance(*nearest);
    if (nearer && StableTextOf(each) == stable) nearest = &each;
  }
  return nearest;
}

}  // namespace korvane
