// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <map>

#include "check/ExitCodes.h"

namespace korvane {

namespace {

constexpr const char* kAbout =
    "Looks in the INI files of a game folder, or of an archive (.big), for what the game would stumble over: "
    "names that nothing defines, blocks that are not closed, misspelt keys and words, and more.";
constexpr const char* kExitCodes =
    "Exit codes: 0 nothing to report, 1 findings, 2 could not check or wrong usage.";

const std::map<std::string, Report> kFormats = {
    {"text", WriteText}, {"json", WriteJson}, {"sarif", WriteSarif}, {"github", WriteGithub}};
const std::map<std::string, Level> kLevels = {
    {"error", Level::error}, {"warning", Level::warning}, {"note", Level::note}};

// What CLI11 fills, before it is made sense of.
struct Written {
  std::string format = "text";
  std::string level;
  std::vector<std::string> only;
  std::vector<std::string> without;
  bool codes = false;
};

const auto kIsCode = CLI::Validator(
    [](const std::string& code) {
      return FindRule(code) == nullptr ? "'" + code + "' is no code (see --codes)" : std::string();
    },
    "CODES");

template <typename Value>
std::vector<std::string> NamesOf(const std::map<std::string, Value>& choices) {
  std::vector<std::string> names;
  names.reserve(choices.size());
  for (const auto& [name, value] : choices) names.push_back(name);
  return names;
}

void AddOptions(CLI::App& app, Arguments& arguments, Written& written) {
  app.add_option("GAME", arguments.game, "The game folder, or an archive (.big)");
  app.add_option("--format", written.format, "How findings are written")
      ->check(CLI::IsMember(NamesOf(kFormats)))
      ->capture_default_str();
  app.add_option("--level", written.level, "The lowest level that is reported (warning without it)")
      ->check(CLI::IsMember(NamesOf(kLevels)));
  for (const auto& [name, codes, about] :
       {std::tuple{"--only", &written.only, "Report only these codes, with commas between them"},
        std::tuple{"--without", &written.without, "Report all but these codes"}})
    app.add_option(name, *codes, about)->delimiter(',')->allow_extra_args(false)->take_all()->check(kIsCode);
  app.add_option("--also", arguments.also,
                 "Read this game folder or archive too, for the names that it defines")
      ->allow_extra_args(false)
      ->take_all();
  auto* baseline =
      app.add_option("--baseline", arguments.baseline, "Leave out the findings that this file lists");
  app.add_flag("--write-baseline", arguments.writeBaseline, "Write all findings to that file, report none")
      ->needs(baseline);
  app.add_option("--jobs", arguments.jobs, "How many files are checked at a time");
  app.add_flag("--codes", written.codes, "List the codes with their levels and meanings");
}

Level LevelOf(const Written& written) {
  if (!written.level.empty()) return kLevels.at(written.level);
  const bool asksForNotes = std::ranges::any_of(
      written.only, [](const std::string& code) { return FindRule(code)->level == Level::note; });
  return asksForNotes ? Level::note : Level::warning;
}

RuleSet RulesOf(const Written& written, Level level) {
  RuleSet rules = level == Level::note ? RuleSet::all() : RuleSet::usual();
  if (!written.only.empty()) rules = RuleSet::none();
  for (const std::string& code : written.only) rules.add(FindRule(code)->id);
  for (const std::string& code : written.without) rules.remove(FindRule(code)->id);
  return rules;
}

void ListCodes() {
  for (const Rule& rule : AllRules())
    std::cout << std::left << std::setw(13) << rule.code << ' ' << std::setw(8) << LevelName(rule.level)
              << rule.meaning << '\n';
}

}  // namespace

ReadArguments ReadCommandLine(int argc, char** argv) {
  CLI::App app(kAbout, "korvane-check");
  app.footer(kExitCodes);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  ReadArguments read;
  Written written;
  AddOptions(app, read.arguments, written);
  try {
    app.parse(argc, argv);
    if (!written.codes && read.arguments.game.empty()) throw CLI::RequiredError("GAME");
  } catch (const CLI::ParseError& error) {
    read.done = true;
    read.exitCode = app.exit(error) == 0 ? kNothingFound : kCouldNotCheck;
    return read;
  }
  if ((read.done = written.codes)) ListCodes();
  read.arguments.report = kFormats.at(written.format);
  read.arguments.level = LevelOf(written);
  read.arguments.rules = RulesOf(written, read.arguments.level);
  return read;
}

}  // namespace korvane
