// SPDX-License-Identifier: GPL-3.0-or-later
#include "Table.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace korvane {

namespace {

constexpr char kMark = '\x1f';   // begins a row's line and parts its fields
constexpr double kNoise = 1.15;  // growth that a busy machine shows by itself

const char* const kHeader =
    "| job | factor | ms | bare ms | ratio | growth | gap ms | peak MB | promise | holds |\n"
    "|---|--:|--:|--:|--:|--:|--:|--:|---|---|\n";

std::string Number(double value, const char* unit = "") {
  char text[32];
  const int decimals = value >= 100 ? 0 : value >= 1 ? 1 : 3;
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return std::string(text) + unit;
}

// A limit as people write it.
std::string Plain(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

double Ratio(const Row& row) {
  return row.bare > 0 ? row.time / row.bare : 0;
}

std::string TextOf(const Promise& promise) {
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
  if (promise.ratio > 0) {
    add("<= " + Plain(promise.ratio) + "x" + (promise.plus > 0 ? " + " + Plain(promise.plus) + " ms" : ""));
  }
  if (promise.time > 0) add("< " + Plain(promise.time) + " ms");
  if (promise.gap > 0) add("gap < " + Plain(promise.gap) + " ms");
  if (promise.memory > 0) add("peak < " + Plain(promise.memory) + " MB");
  if (promise.growth) add("grows with the data");
  return text;
}

bool Below(double value, double limit) {
  return limit <= 0 || value <= limit;
}

// Times and sizes are promised for the original's size; the ratio holds at every size.
bool LimitsHold(const Row& row) {
  const Promise& promise = row.promise;
  const bool ratioHolds = promise.ratio <= 0 || row.time <= promise.ratio * row.bare + promise.plus;
  if (row.factor > 1) return ratioHolds;
  return ratioHolds && Below(row.time, promise.time) && Below(row.gap, promise.gap) &&
         Below(row.memory, promise.memory);
}

const Row& Smallest(const std::vector<Row>& rows, const Row& row) {
  return *std::find_if(rows.begin(), rows.end(), [&](const Row& other) { return other.name == row.name; });
}

// The cost grows no faster than the data, or no faster than what the machine needs for the bare bytes.
bool GrowthHolds(const Row& row, const Row& smallest) {
  if (!row.promise.growth) return true;
  const double data = static_cast<double>(row.factor) / smallest.factor;
  const bool ratioHolds = row.bare > 0 && Ratio(row) <= Ratio(smallest) * kNoise;
  return ratioHolds || row.time <= smallest.time * data * kNoise;
}

bool PrintRow(const Row& row, const Row& smallest) {
  const bool holds = LimitsHold(row) && GrowthHolds(row, smallest);
  const std::string growth = row.factor > smallest.factor ? Number(row.time / smallest.time, "x") : "";
  const std::string promise = TextOf(row.promise);
  std::printf("| %s | %d | %s | %s | %s | %s | %s | %s | %s | %s |\n", row.name.c_str(), row.factor,
              Number(row.time).c_str(), row.bare > 0 ? Number(row.bare).c_str() : "",
              row.bare > 0 ? Number(Ratio(row)).c_str() : "", growth.c_str(),
              row.gap >= 0 ? Number(row.gap).c_str() : "", Number(row.memory).c_str(), promise.c_str(),
              holds ? "yes" : "NO");
  return holds;
}

}  // namespace

std::string LineOfRow(const Row& row) {
  std::ostringstream line;
  const Promise& promise = row.promise;
  line << kMark << row.name << kMark << row.factor;
  for (const double value : {row.time, row.bare, row.gap, row.memory, promise.ratio, promise.plus,
                             promise.time, promise.gap, promise.memory, promise.growth ? 1.0 : 0.0}) {
    line << ' ' << value;
  }
  return line.str();
}

std::optional<Row> RowOfLine(const std::string& line) {
  const std::size_t nameEnd = line.find(kMark, 1);
  if (!line.starts_with(kMark) || nameEnd == std::string::npos) return std::nullopt;
  Row row;
  row.name = line.substr(1, nameEnd - 1);
  std::istringstream values(line.substr(nameEnd + 1));
  Promise& promise = row.promise;
  values >> row.factor >> row.time >> row.bare >> row.gap >> row.memory >> promise.ratio >> promise.plus >>
      promise.time >> promise.gap >> promise.memory >> promise.growth;
  return values ? std::optional(row) : std::nullopt;
}

bool PrintTable(const std::vector<Row>& rows) {
  bool allHold = true;
  std::fputs(kHeader, stdout);
  for (const Row& first : rows) {
    if (&Smallest(rows, first) != &first) continue;
    for (const Row& row : rows) {
      if (row.name == first.name) allHold = PrintRow(row, first) && allHold;
    }
  }
  return allHold;
}

}  // namespace korvane
