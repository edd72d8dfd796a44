// SPDX-License-Identifier: GPL-3.0-or-later
#include "diff/Arguments.h"

#include <CLI/CLI.hpp>

#include "diff/TextFormat.h"

namespace korvane {

namespace {

constexpr const char* kAbout =
    "Tells which items of a modification's INI files differ from the original's, and in which keys. Order, "
    "spacing, comments and the file in which an item stands do not count.";
constexpr const char* kExitCodes = "Exit codes: 0 the same, 1 different, 2 could not compare or wrong usage.";
constexpr const char* kTextFormat = "text";

// What CLI11 fills, before it is made sense of.
struct Written {
  std::string format = kTextFormat;
  std::vector<std::string> kinds;
};

std::string WhyNoKind(const std::string& kind) {
  if (GameStructure::get().kind(kind) != kNoKind) return {};
  std::string why = "there is no kind \"" + kind + "\"; there are";
  for (const Kind& each : GameStructure::get().kinds()) why += ' ' + std::string(each.name);
  return why;
}

std::vector<std::string> FormatNames() {
  std::vector<std::string> names = {kTextFormat};
  for (const ExportFormat& format : ExportFormats()) names.emplace_back(format.name);
  return names;
}

void AddOptions(CLI::App& app, Arguments& arguments, Written& written) {
  app.footer(kExitCodes);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.add_option("--format", written.format, "How differences are written")
      ->check(CLI::IsMember(FormatNames()))
      ->type_name("FORMAT")
      ->capture_default_str();
  app.add_option("--kind", written.kinds, "Only items of these kinds, with commas between them")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->take_all()
      ->check(CLI::Validator(WhyNoKind, ""))
      ->type_name("KINDS");
  app.add_flag("--text", arguments.text, "Also items in which only order, spacing or comments differ");
  app.add_option("ORIGINAL", arguments.original,
                 "A game folder, an archive (.big) or a stock database (.DBF)")
      ->required();
  app.add_option("MOD", arguments.modification, "The same of the modification")->required();
}

}  // namespace

ReadArguments ReadCommandLine(int argc, char** argv) {
  CLI::App app(kAbout, "korvane-diff");
  ReadArguments read;
  Written written;
  AddOptions(app, read.arguments, written);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    read.done = true;
    read.exitCode = app.exit(error) == 0 ? kSame : kCouldNotCompare;
    return read;
  }
  const ExportFormat* format = FindExportFormat(written.format);
  read.arguments.write = format == nullptr ? WriteText : format->write;
  for (const std::string& kind : written.kinds)
    read.arguments.kinds.push_back(GameStructure::get().kind(kind));
  return read;
}

}  // namespace korvane
