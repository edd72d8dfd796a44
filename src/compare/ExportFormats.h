// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "compare/Comparison.h"

namespace korvane {

// How a comparison is written for others. All of it is UTF-8 with LF.
struct ExportFormat {
  std::string_view name;     // "markdown"
  std::string_view caption;  // "Markdown"
  std::string_view ending;   // of its files, with the dot
  void (*write)(std::ostream& out, const Comparison& comparison);
};

std::span<const ExportFormat> ExportFormats();
// nullptr when there is none of this name.
const ExportFormat* FindExportFormat(std::string_view name);

// One object a line.
void WriteJsonLines(std::ostream& out, const Comparison& comparison);
// A table with a row for every key.
void WriteCsv(std::ostream& out, const Comparison& comparison);
// Release notes, by side and kind.
void WriteMarkdown(std::ostream& out, const Comparison& comparison);
void WriteHtml(std::ostream& out, const Comparison& comparison);

// "Data/INI/Weapon.ini", in UTF-8.
std::string ExportedPath(const SourceFile& file);
// "3 items added, 1 removed, 12 changed".
std::string CountsOf(const Comparison& comparison);
// "BuildCost: 900 → 800", in UTF-8.
std::string KeyChangeText(const KeyChange& change);

}  // namespace korvane
