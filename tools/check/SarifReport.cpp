// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>

#include "check/Baseline.h"
#include "check/Report.h"
#include "check/Rules.h"
#include "files/JsonText.h"

namespace korvane {

namespace {

constexpr std::string_view kSchema = "https://json.schemastore.org/sarif-2.1.0.json";

std::string UriOf(std::string_view path) {
  constexpr std::string_view kPlain = "-._~/";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri;
  for (const char c : path) {
    const bool letterOrDigit = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (letterOrDigit || kPlain.find(c) != std::string_view::npos) {
      uri += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    uri.append("%").push_back(kDigits[byte >> 4U]);
    uri.push_back(kDigits[byte & 15U]);
  }
  return uri;
}

JsonObject Text(std::string_view text) {
  return JsonObject().add("text", text);
}

JsonObject Location(const std::string& path, const JsonObject& region) {
  return JsonObject().add(
      "physicalLocation",
      JsonObject().add("artifactLocation", JsonObject().add("uri", UriOf(path))).add("region", region));
}

JsonObject RegionOf(const Finding& finding) {
  return JsonObject()
      .add("startLine", finding.line)
      .add("startColumn", finding.column)
      .add("endColumn", finding.column + finding.length);
}

JsonObject ResultOf(const Finding& finding, const ReportContext& context) {
  JsonObject result;
  result.add("ruleId", finding.code)
      .add("level", LevelName(finding.level))
      .add("message", Text(finding.text));
  const JsonObject place = Location(context.prefix + finding.file, RegionOf(finding));
  result.addJson("locations", JsonArray().add(place.text()).text());
  result.add("partialFingerprints", JsonObject().add("finding/v1", StableTextOf(finding)));
  if (finding.other.line > 0) {
    const JsonObject other =
        Location(context.prefix + finding.other.file, JsonObject().add("startLine", finding.other.line));
    result.addJson("relatedLocations", JsonArray().add(other.text()).text());
  }
  return result;
}

std::string RulesJson() {
  JsonArray rules;
  for (const Rule& rule : AllRules()) {
    JsonObject object;
    object.add("id", rule.code).add("shortDescription", Text(rule.meaning));
    object.add("defaultConfiguration", JsonObject().add("level", LevelName(rule.level)));
    rules.add(object.text());
  }
  return rules.text();
}

}  // namespace

void WriteSarif(std::ostream& out, const Findings& findings, const ReportContext& context) {
  const JsonObject driver = JsonObject().add("name", "korvane-check").addJson("rules", RulesJson());
  JsonArray results;
  for (const Finding& finding : findings) results.add(ResultOf(finding, context).text());
  JsonObject run;
  run.add("tool", JsonObject().add("driver", driver)).add("columnKind", "unicodeCodePoints");
  run.addJson("results", results.text());
  JsonObject log;
  log.add("$schema", kSchema).add("version", "2.1.0").addJson("runs", JsonArray().add(run.text()).text());
  out << log.text() << '\n';
}

}  // namespace korvane
