// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <exception>
#include <functional>
#include <iostream>

#include "Commands.h"
#include "Terminal.h"

namespace {

using namespace korvane;

enum ExitCode { allWell = 0, failed = 1, badUsage = 2 };

constexpr const char* kAbout =
    "Packs a game's data files into a stock database (\"Data.DBF\" and \"Data.DBT\"), from which Korvane "
    "restores files that are missing, and looks into such databases and the game's own archives.";
constexpr const char* kExitCodes = "Exit codes: 0 all went well, 1 something failed, 2 wrong usage.";

CLI::App* AddPack(CLI::App& app, PackOptions& options) {
  CLI::App* command = app.add_subcommand("pack", "Make a stock database of the thirteen data files");
  command
      ->add_option("SOURCE", options.sources, "Game folders and archives (.big); the first with a file wins")
      ->required();
  command->add_option("-o,--output", options.output, "Folder for the database (made if missing)")
      ->capture_default_str();
  command->add_option("-n,--name", options.name, "Name of the database")->capture_default_str();
  auto* all = command->add_flag("-a,--all", options.all, "Take every file below Data\\INI");
  command->add_option("-f,--file", options.files, "Take this file, such as Data/INI/Weapon.ini (repeatable)")
      ->take_all()
      ->allow_extra_args(false)
      ->excludes(all);
  command->add_flag("-p,--partial", options.partial, "Leave out files that no source has");
  return command;
}

CLI::App* AddExtract(CLI::App& app, ExtractOptions& options) {
  CLI::App* command =
      app.add_subcommand("extract", "Write the files of a database or an archive to a folder");
  command->add_option("FROM", options.container, "The table (Data.DBF) or archive (.big)")->required();
  command->add_option("FOLDER", options.folder, "The folder (made if missing)")->required();
  command->add_option("FILE", options.files, "Only these files, such as Data/INI/Weapon.ini");
  command->add_flag("--overwrite", options.overwrite, "Replace files that are there already");
  return command;
}

CLI::App* AddReading(CLI::App& app, const char* name, const char* about, std::string& container) {
  CLI::App* command = app.add_subcommand(name, about);
  command->add_option("FROM", container, "The table (Data.DBF) or archive (.big)")->required();
  return command;
}

int Run(int argc, char** argv) {
  CLI::App app(kAbout, "korvane-stock");
  app.footer(kExitCodes);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.require_subcommand(1);
  PackOptions packing;
  ExtractOptions extracting;
  std::string container;
  const std::pair<CLI::App*, std::function<bool()>> commands[] = {
      {AddPack(app, packing), [&] { return Pack(packing); }},
      {AddReading(app, "list", "List the files of a database or an archive", container),
       [&] { return List(container); }},
      {AddReading(app, "verify", "Read all of a database or an archive and tell its faults", container),
       [&] { return Verify(container); }},
      {AddExtract(app, extracting), [&] { return Extract(extracting); }},
  };
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? allWell : badUsage;
  }
  for (const auto& [command, run] : commands) {
    if (*command) return run() ? allWell : failed;
  }
  return badUsage;
}

}  // namespace

int main(int argc, char** argv) {
  const Utf8Session session(argc, argv);
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "korvane-stock: " << error.what() << '\n';
    return failed;
  }
}
