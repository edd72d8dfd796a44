// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>

#include "BarePass.h"
#include "ProgramJobs.h"

extern char** environ;

namespace korvane {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

fs::path Self() {
  return fs::read_symlink("/proc/self/exe");
}

pid_t Spawn(const Words& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failure = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw std::runtime_error("cannot run " + words[0]);
  return child;
}

// Runs a program to its end and tells its memory.
Told RunProcess(const Words& words) {
  int status = 0;
  rusage usage{};
  if (wait4(Spawn(words), &status, 0, &usage) < 0 || status != 0)
    throw std::runtime_error(words[0] + " failed");
  return {.memory = static_cast<double>(usage.ru_maxrss) / 1024};
}

fs::path ToldFile(const BenchFolders& folders) {
  return folders.home / "told";
}

Told ToldBy(const BenchFolders& folders) {
  Told told;
  std::ifstream(ToldFile(folders)) >> told.gap >> told.memory;
  return told;
}

Job StartJob(std::string name, const BenchFolders& folders, const Paths& files) {
  return {.name = std::move(name),
          .promise = {.time = 500, .memory = 150, .growth = true},
          .run =
              [folders] {
                RunProcess({Self(), "--part", "start", "--home", folders.home});
              },
          .bare = BareRead(files),
          .told = [folders] { return ToldBy(folders); }};
}

// The main window reads the names of all objects and weapons. A modification has objects in many files more.
Job GameStartJob(const BenchFolders& folders) {
  Paths files = folders.objectFiles();
  files.push_back(folders.ini("Weapon.ini"));
  return StartJob("start to usable window", folders, files);
}

Job ModificationStartJob(const BenchFolders& folders) {
  Paths files{folders.ini("Weapon.ini")};
  for (const fs::path& file : folders.iniFiles())
    if (file.parent_path() == folders.objects("").parent_path()) files.push_back(file);
  return StartJob("start with objects in many files", folders, files);
}

// A job of korvane-stock, beside a copy of the same files by the system.
Job StockJob(const char* name, Words arguments, const BenchFolders& folders, const fs::path& output) {
  const auto told = std::make_shared<Told>();
  const fs::path copy = folders.home / "copy";
  arguments.insert(arguments.begin(), Self().parent_path() / "korvane-stock");
  return {.name = name,
          .promise = {.ratio = 2},
          .run = [=] { *told = RunProcess(arguments); },
          .bare =
              [=] {
                RunProcess({"cp", "-r", folders.game() / "Data", copy});
              },
          .prepare =
              [=] {
                fs::remove_all(output);
                fs::remove_all(copy);
              },
          .told = [told] { return *told; }};
}

// The catalogue in a process of its own, which shows its memory.
Job NamesJob(const BenchFolders& modification) {
  const auto told = std::make_shared<Told>();
  const Words words{Self().parent_path() / "korvane-names", modification.game(), "uses", "ChinaGun00001"};
  return {.name = "korvane-names, uses of a weapon",
          .promise = {.memory = 60, .growth = true},
          .run = [=] { *told = RunProcess(words); },
          .bare = BareRead(modification.iniFiles()),
          .told = [told] { return *told; }};
}

}  // namespace

Jobs ProcessJobs(const BenchFolders& folders) {
  const fs::path packed = folders.home / "packed";
  const fs::path extracted = folders.home / "extracted";
  return {GameStartJob(folders), ModificationStartJob(folders.modification()),
          StockJob("pack", {"pack", "--output", packed, folders.game()}, folders, packed),
          StockJob("extract", {"extract", folders.program() / "Data.DBF", extracted}, folders, extracted),
          NamesJob(folders.modification())};
}

void KeepTold(const BenchFolders& folders, const Told& told) {
  std::ofstream(ToldFile(folders)) << told.gap << ' ' << told.memory << '\n';
}

}  // namespace korvane
