// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <vector>

#include "check/Report.h"
#include "files/Windows1252.h"

namespace korvane {

namespace {

constexpr std::size_t kLongestLine = 160;  // of a file's line that is shown, in characters
constexpr std::size_t kPlacesShown = 8;    // of one missing name, behind the first

struct Colours {
  std::string_view bold, level, off;
};

Colours ColoursFor(Level level, bool wanted) {
  if (!wanted) return {};
  constexpr std::array<std::string_view, 3> kLevels = {"\033[1;36m", "\033[1;35m", "\033[1;31m"};
  return {"\033[1m", kLevels[static_cast<std::size_t>(level)], "\033[0m"};
}

std::string Position(const Finding& finding) {
  return ShownFile(finding) + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
}

char PrintableByte(char c) {
  const bool control = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
  return control ? ' ' : c;
}

// The line and a mark below it, moved to the left where the place lies far to the right.
void WriteLine(std::ostream& out, const Finding& finding, const ReportContext& context,
               const Colours& colours) {
  std::string line = context.lineOf(finding);
  std::transform(line.begin(), line.end(), line.begin(), PrintableByte);
  const auto column = static_cast<std::size_t>(std::max(finding.column - 1, 0));
  const std::size_t skipped = column > kLongestLine / 2 ? column - kLongestLine / 2 : 0;
  if (column > line.size()) return;
  line = line.substr(skipped, kLongestLine);
  const std::size_t left = line.size() - std::min(column - skipped, line.size());
  const std::size_t marked = std::min(static_cast<std::size_t>(std::max(finding.length, 1)), left);
  const std::string number = std::to_string(finding.line);
  out << std::string(6 - std::min<std::size_t>(6, number.size()), ' ') << number << " | "
      << Utf8FromBytes(line) << '\n';
  out << std::string(std::max<std::size_t>(6, number.size()), ' ') << " | "
      << std::string(column - skipped, ' ') << colours.level << '^'
      << std::string(marked > 1 ? marked - 1 : 0, '~') << colours.off << '\n';
}

using Groups = std::map<std::string_view, std::vector<const Finding*>>;

Groups GroupsOf(const Findings& findings) {
  Groups groups;
  for (const Finding& finding : findings)
    if (!finding.group.empty()) groups[finding.group].push_back(&finding);
  return groups;
}

void WritePlaces(std::ostream& out, const std::vector<const Finding*>& group) {
  const std::size_t shown = std::min(group.size(), kPlacesShown + 1);
  for (std::size_t i = 1; i < shown; ++i) out << Position(*group[i]) << ": note: and here\n";
  if (group.size() > shown) out << "  ... and in " << group.size() - shown << " more places\n";
}

void WriteFinding(std::ostream& out, const Finding& finding, const ReportContext& context) {
  const Colours colours = ColoursFor(finding.level, context.colours);
  out << colours.bold << Position(finding) << ": " << colours.off << colours.level << LevelName(finding.level)
      << ": " << colours.off << finding.text << " [" << finding.code << "]\n";
  if (context.terminal) WriteLine(out, finding, context, colours);
}

std::string Counted(std::size_t count, std::string_view noun) {
  return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

void WriteSummary(std::ostream& out, const Findings& findings, const ReportContext& context) {
  std::string counts;
  for (const Level level : {Level::error, Level::warning, Level::note}) {
    const auto count = static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [level](const Finding& finding) { return finding.level == level; }));
    if (count > 0) counts.append(counts.empty() ? "" : ", ").append(Counted(count, LevelName(level)));
  }
  out << (counts.empty() ? "Nothing to report" : counts) << " in " << Counted(context.files, "file") << ".\n";
}

}  // namespace

std::string ShownFile(const Finding& finding) {
  return finding.archive.empty() ? finding.file : finding.archive + ":" + finding.file;
}

void WriteText(std::ostream& out, const Findings& findings, const ReportContext& context) {
  const Groups groups = GroupsOf(findings);
  for (const Finding& finding : findings) {
    const auto group = groups.find(finding.group);
    if (group != groups.end() && group->second.front() != &finding) continue;
    WriteFinding(out, finding, context);
    if (group != groups.end()) WritePlaces(out, group->second);
  }
  WriteSummary(out, findings, context);
}

}  // namespace korvane
