// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <exception>
#include <functional>
#include <iostream>

#include "Answers.h"
#include "Printable.h"
#include "Terminal.h"
#include "files/NativePath.h"

namespace {

using namespace korvane;

enum ExitCode { found = 0, nothingFound = 1, failed = 2 };

constexpr const char* kAbout =
    "Tells where the items of a game folder's INI files are defined and what uses them. Letter case does not "
    "matter.";
constexpr const char* kExitCodes =
    "Exit codes: 0 found, 1 nothing found, 2 wrong usage, or files could not be read.";

struct Options {
  std::string format = "text";
  std::string kind;
  std::string game;
  std::string name;
};

using Command = std::function<void(const Catalogue&, KindId, const std::string&, AnswerWriter&)>;

struct Question {
  const char* command;
  const char* argument;
  const char* about;
  const char* aboutArgument;
  Command answer;
};

const Question kQuestions[] = {
    {"definitions", "NAME", "Where the item is defined", "The item's name", WriteDefinitions},
    {"uses", "NAME", "What names the item, with the line of each", "The item's name", WriteUses},
    {"search", "TEXT", "Definitions of names that fit, the best first",
     "A part of the name, or beginnings of its words: amtacru finds AmericaTankCrusader", WriteMatches},
    {"list", nullptr, "Every definition", nullptr,
     [](const Catalogue& catalogue, KindId kind, const std::string&, AnswerWriter& writer) {
       WriteAll(catalogue, kind, writer);
     }},
};

std::string WhyNoKind(const std::string& kind) {
  if (GameStructure::get().kind(kind) != kNoKind) return {};
  std::string why = "there is no kind \"" + kind + "\"; there are";
  for (const Kind& each : GameStructure::get().kinds())
    if (each.space != kNoSpace) why += ' ' + std::string(each.name);
  return why;
}

void AddOptions(CLI::App& app, Options& options) {
  app.footer(kExitCodes);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.fallthrough();
  app.require_subcommand(1);
  app.add_option("--format", options.format,
                 "How answers are written: text (a line for each) or json (an object a line)")
      ->check(CLI::IsMember({"text", "json"}))
      ->type_name("FORMAT")
      ->capture_default_str();
  app.add_option("--kind", options.kind, "Only items of this kind, such as Weapon")
      ->check(CLI::Validator(WhyNoKind, ""))
      ->type_name("KIND");
  app.add_option("GAME", options.game, "The game folder")->required();
  for (const Question& question : kQuestions) {
    CLI::App* command = app.add_subcommand(question.command, question.about);
    if (question.argument != nullptr)
      command->add_option(question.argument, options.name, question.aboutArgument)->required();
  }
}

void TellSkipped(const Catalogue& catalogue) {
  for (const SkippedFile& file : catalogue.skipped())
    std::cerr << "korvane-names: " << Printable(NativePath(ProgramPath(file.path)).string()) << ": "
              << Printable(file.reason) << '\n';
}

int Answer(const Options& options, const Command& answer) {
  const CataloguePtr catalogue = ReadCatalogue({ProgramText(PathFromUtf8(options.game))});
  TellSkipped(*catalogue);
  if (catalogue->files().empty()) {
    std::cerr << "korvane-names: " << options.game << ": no INI files below Data/INI\n";
    return failed;
  }
  AnswerWriter writer(std::cout, options.format == "json" ? AnswerFormat::json : AnswerFormat::text);
  answer(*catalogue, options.kind.empty() ? kNoKind : GameStructure::get().kind(options.kind), options.name,
         writer);
  std::cout.flush();
  if (!std::cout) throw std::runtime_error("the answers cannot be written");
  if (writer.written() > 0) return found;
  return catalogue->skipped().empty() ? nothingFound : failed;
}

int Run(int argc, char** argv) {
  CLI::App app(kAbout, "korvane-names");
  Options options;
  AddOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? found : failed;
  }
  for (const Question& question : kQuestions)
    if (app.got_subcommand(question.command)) return Answer(options, question.answer);
  return failed;
}

}  // namespace

int main(int argc, char** argv) {
  const Utf8Session session(argc, argv);
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "korvane-names: " << error.what() << '\n';
    return failed;
  }
}
