// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>
#include <string>
#include <utility>

#include "check/Report.h"

namespace korvane {

namespace {

// What has a meaning of its own in a workflow command is written as a number; ':' and ',' only among its
// properties.
std::string Escaped(std::string_view text, bool property) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '%':
        escaped += "%25";
        break;
      case '\r':
        escaped += "%0D";
        break;
      case '\n':
        escaped += "%0A";
        break;
      case ':':
        escaped += property ? "%3A" : ":";
        break;
      case ',':
        escaped += property ? "%2C" : ",";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string_view CommandOf(Level level) {
  return level == Level::note ? "notice" : LevelName(level);
}

}  // namespace

void WriteGithub(std::ostream& out, const Findings& findings, const ReportContext& context) {
  for (const Finding& finding : findings) {
    out << "::" << CommandOf(finding.level) << " file=" << Escaped(context.prefix + finding.file, true)
        << ",line=" << finding.line << ",col=" << finding.column
        << ",endColumn=" << finding.column + finding.length << ",title=" << finding.code
        << "::" << Escaped(finding.text, false) << '\n';
  }
}

}  // namespace korvane
