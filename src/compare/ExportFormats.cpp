// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/ExportFormats.h"

#include <algorithm>
#include <array>

#include "files/Windows1252.h"

namespace korvane {

namespace {

constexpr std::string_view kArrow = " \xE2\x86\x92 ";

constexpr std::array kFormats = {
    ExportFormat{"markdown", "Markdown", ".md", WriteMarkdown},
    ExportFormat{"html", "HTML", ".html", WriteHtml},
    ExportFormat{"csv", "CSV", ".csv", WriteCsv},
    ExportFormat{"json", "JSON", ".json", WriteJsonLines},
};

std::string ValueText(const std::string& value) {
  return value.empty() ? "(empty)" : Utf8FromBytes(value);
}

}  // namespace

std::span<const ExportFormat> ExportFormats() {
  return kFormats;
}

const ExportFormat* FindExportFormat(std::string_view name) {
  const auto* found = std::ranges::find(kFormats, name, &ExportFormat::name);
  return found == kFormats.end() ? nullptr : found;
}

std::string ExportedPath(const SourceFile& file) {
  // Archives name their files in the bytes of the game's texts, the system in UTF-8.
  std::string path = file.archived ? Utf8FromBytes(file.path) : file.path;
  std::ranges::replace(path, '\\', '/');
  return path;
}

std::string CountsOf(const Comparison& comparison) {
  std::string text;
  for (std::size_t i = 0; i < kItemStates.size(); ++i) {
    const auto count = std::ranges::count(comparison.items, static_cast<ItemState>(i), &ItemChange::state);
    text += (i == 0 ? "" : ", ") + std::to_string(count);
    if (i == 0) text += count == 1 ? " item" : " items";
    text += ' ' + std::string(kItemStates[i]);
  }
  return text;
}

std::string KeyChangeText(const KeyChange& change) {
  const std::string key = Utf8FromBytes(change.key);
  if (!change.former)
    return key + " added" + (change.present->empty() ? "" : ": " + ValueText(*change.present));
  if (!change.present)
    return key + " removed" + (change.former->empty() ? "" : ": " + ValueText(*change.former));
  return key + ": " + ValueText(*change.former) + std::string(kArrow) + ValueText(*change.present);
}

}  // namespace korvane
