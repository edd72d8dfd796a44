// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "app/Services.h"
#include "settings/SettingsStore.h"
#include "support/Fakes.h"

namespace korvane {

// Where the things of one measurement lie (native paths).
struct BenchFolders {
  std::filesystem::path home;

  std::filesystem::path game() const { return home / "game"; }
  std::filesystem::path program() const { return home / "program"; }
  std::filesystem::path settings() const { return home / "settings"; }
  std::filesystem::path ini(std::string_view name) const { return game() / "Data" / "INI" / name; }
  std::filesystem::path objects(std::string_view name) const { return ini("Object") / name; }

  // Beside them, those of a whole modification.
  BenchFolders modification() const { return {home / "modification"}; }

  // The object files, in the order in which they are read.
  std::vector<std::filesystem::path> objectFiles() const;
  // The thirteen data files.
  std::vector<std::filesystem::path> dataFiles() const;
  // All files below Data\INI.
  std::vector<std::filesystem::path> iniFiles() const;
};

inline constexpr std::string_view kLargestFile = "FactionUnit.ini";
// Stands at the end of the largest file, and nowhere else.
inline constexpr const char* kFarthestText = "farthest from the start";

// Writes a made-up game so many times as large as the original, a modification so many times as large as
// published ones, and the stock databases made of them.
void MakeBenchFolders(const BenchFolders& folders, int factor);

// A desktop on which nobody sits: the program runs for real, its messages are answered, and its settings are
// its own.
struct BenchDesk {
  explicit BenchDesk(const BenchFolders& where);

  SettingsStore settings;
  FakeMessageBoxes messages;
  FakeShell shell;
  FakeHelpViewer help;
  FakeProcessEnd process;
  EventYield yield;
  Folders folders;
  Services services{settings, messages, shell, help, process, yield, folders};
};

// A path on this machine, as the program writes it.
QString ProgramQText(const std::filesystem::path& native);

}  // namespace korvane
