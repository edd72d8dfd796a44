// SPDX-License-Identifier: GPL-3.0-or-later
// The formats with which programs go on: JSON and CSV.
#include <array>
#include <ostream>

#include "compare/ExportFormats.h"
#include "files/JsonText.h"
#include "files/Windows1252.h"

namespace korvane {

namespace {

std::string_view StateText(const ItemChange& item) {
  return kItemStates[static_cast<std::size_t>(item.state)];
}

std::string JsonOf(const std::optional<std::string>& value) {
  return value ? JsonString(Utf8FromBytes(*value)) : "null";
}

std::string JsonOf(const std::vector<KeyChange>& keys) {
  JsonArray array;
  for (const KeyChange& key : keys)
    array.add(JsonObject()
                  .add("key", Utf8FromBytes(key.key))
                  .addJson("old", JsonOf(key.former))
                  .addJson("new", JsonOf(key.present))
                  .text());
  return array.text();
}

std::string CsvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field += c == '"' ? std::string("\"\"") : std::string(1, c);
  return field + '"';
}

constexpr std::array kColumns = {"kind", "name", "side", "change", "key", "old", "new", "file", "line"};

void WriteCsvRow(std::ostream& out, const Comparison& comparison, const ItemChange& item,
                 const KeyChange& key) {
  const std::array<std::string, kColumns.size()> fields = {
      std::string(KindText(item.kind)),
      Utf8FromBytes(item.name),
      Utf8FromBytes(item.side),
      std::string(StateText(item)),
      Utf8FromBytes(key.key),
      Utf8FromBytes(key.former.value_or("")),
      Utf8FromBytes(key.present.value_or("")),
      ExportedPath(comparison.fileOf(item)),
      std::to_string(key.presentLine > 0 ? key.presentLine : comparison.lineOf(item))};
  for (std::size_t i = 0; i < fields.size(); ++i) out << (i == 0 ? "" : ",") << CsvField(fields[i]);
  out << '\n';
}

}  // namespace

void WriteJsonLines(std::ostream& out, const Comparison& comparison) {
  for (const ItemChange& item : comparison.items) {
    JsonObject object;
    object.add("kind", KindText(item.kind)).add("name", Utf8FromBytes(item.name));
    object.add("change", StateText(item)).add("file", ExportedPath(comparison.fileOf(item)));
    object.add("line", static_cast<int>(comparison.lineOf(item)));
    if (item.state == ItemState::changed) object.addJson("keys", JsonOf(item.keys));
    out << object.text() << '\n';
  }
}

void WriteCsv(std::ostream& out, const Comparison& comparison) {
  for (std::size_t i = 0; i < kColumns.size(); ++i) out << (i == 0 ? "" : ",") << kColumns[i];
  out << '\n';
  for (const ItemChange& item : comparison.items) {
    for (const KeyChange& key : item.keys) WriteCsvRow(out, comparison, item, key);
    if (item.keys.empty()) WriteCsvRow(out, comparison, item, {});
  }
}

}  // namespace korvane
