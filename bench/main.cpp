// SPDX-License-Identifier: GPL-3.0-or-later
// korvane-bench: measures the program's jobs on made-up game folders and prints them as one table.
#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <exception>
#include <iostream>

#include "GapMeter.h"
#include "Measure.h"
#include "PeerParts.h"
#include "ProgramJobs.h"
#include "Table.h"
#include "startup/Program.h"

namespace {

using namespace korvane;

struct Options {
  std::vector<int> factors = {1, 4, 16};
  int runs = 0;  // 0: by the factor
  bool quick = false;
  std::string only;
  // Of a process that this one starts.
  std::string part;
  std::string home;
  int factor = 1;
  std::string sought;
  std::string file;
};

constexpr int kQuickRuns = 3;

int RunsAt(int factor) {
  return factor > 4 ? 7 : factor > 1 ? 11 : 21;
}

bool Wanted(const Job& job, const Options& options) {
  const bool sizeFits = job.size == Job::Size::ofTheFolder || options.factor == 1;
  return sizeFits && job.name.find(options.only) != std::string::npos;
}

// A row at a time, since a job that fails ends the process.
void MeasureAll(const Jobs& jobs, const Options& options) {
  for (const Job& job : jobs) {
    if (!Wanted(job, options)) continue;
    std::cerr << "   " << job.name << '\n';
    std::cout << LineOfRow(Measure(job, options.factor, options.runs)) << std::endl;
  }
}

using JobsOfProgram = Jobs (*)(const RunningProgram&);

constexpr std::array<JobsOfProgram, 4> kGameJobs = {ReadingJobs, EditorJobs, ManualEditorJobs, DatabaseJobs};
constexpr std::array<JobsOfProgram, 4> kModificationJobs = {CatalogueJobs, CheckJobs, CompareJobs,
                                                            SearchJobs};

void MeasureProgram(const Options& options) {
  const BenchFolders all{options.home};
  const bool ofModification = options.part == "modification";
  const BenchFolders folders = ofModification ? all.modification() : all;
  BenchDesk desk(folders);
  Program program(desk.services, desk.folders, {});
  program.StartProgram();
  const RunningProgram running{folders, desk, program};
  for (const auto jobs : ofModification ? kModificationJobs : kGameJobs) MeasureAll(jobs(running), options);
}

// The program to its usable main window. The whole process is what is measured, so it ends at once.
void StartOnly(const Options& options) {
  const BenchFolders folders{options.home};
  BenchDesk desk(folders);
  GapMeter meter;
  Program program(desk.services, desk.folders, {});
  program.StartProgram();
  KeepTold(folders, {meter.longest(), PeakMemory()});
  RealProcessEnd().end();
}

void UseFoldersOf(const Options& options) {
  if (options.part != "edit") qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");  // what that platform cannot do
  qputenv("XDG_DATA_HOME", QByteArray::fromStdString(options.home + "/data"));
}

int RunPart(const Options& options, int argc, char** argv) {
  if (options.part == "folders") {
    MakeBenchFolders({options.home}, options.factor);
    return 0;
  }
  if (options.part == "processes") {
    MeasureAll(ProcessJobs({options.home}), options);
    return 0;
  }
  UseFoldersOf(options);
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (options.part == "find") {
    FindAsPeer(BenchFolders{options.home}.game(), options.sought, options.runs);
  } else if (options.part == "edit") {
    EditAsPeer({options.home}, options.file);
  } else if (options.part == "start") {
    StartOnly(options);
  } else {
    MeasureProgram(options);
  }
  return 0;
}

// Each part of each factor is a process of its own, so that one's memory is not another's.
std::vector<Row> RowsOfPart(const char* part, int factor, const std::string& home, const Options& options) {
  const int runs = options.runs > 0 ? options.runs : options.quick ? kQuickRuns : RunsAt(factor);
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QStringList arguments{"--part", part, "--home", QString::fromStdString(home)};
  arguments << "--scale" << QString::number(factor) << "--runs" << QString::number(runs);
  if (!options.only.empty()) arguments << "--only" << QString::fromStdString(options.only);
  process.start("/proc/self/exe", arguments);
  process.waitForFinished(-1);
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
    throw std::runtime_error("a measurement failed");
  std::vector<Row> rows;
  for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
    if (const auto row = RowOfLine(line.toStdString())) rows.push_back(*row);
  }
  return rows;
}

int MeasureEverything(const Options& options) {
  QTemporaryDir folder;
  std::vector<Row> rows;
  for (const int factor : options.factors) {
    std::cerr << "-- " << factor << " times the original's size\n";
    const std::string home = folder.filePath(QString::number(factor)).toStdString();
    MakeBenchFolders({home}, factor);
    for (const char* part : {"processes", "program", "modification"}) {
      const std::vector<Row> more = RowsOfPart(part, factor, home, options);
      rows.insert(rows.end(), more.begin(), more.end());
    }
  }
  return PrintTable(rows) ? 0 : 1;
}

int Run(int argc, char** argv) {
  Options options;
  CLI::App app("Measures Korvane's jobs on made-up game folders and prints them as one table.");
  auto* factors = app.add_option("--factor", options.factors, "Sizes of the folders, times the original's");
  factors->check(CLI::Range(1, 100))->capture_default_str();
  app.add_flag("--quick", options.quick, "Factor 1 only, few runs")->excludes(factors);
  app.add_option("--runs", options.runs, "Runs of each job")->check(CLI::PositiveNumber);
  app.add_option("--only", options.only, "Only the jobs whose name has this text");
  app.add_option("--part", options.part)->group("");
  app.add_option("--home", options.home)->group("");
  app.add_option("--scale", options.factor)->group("");
  app.add_option("--text", options.sought)->group("");
  app.add_option("--file", options.file)->group("");
  CLI11_PARSE(app, argc, argv);
  if (options.quick) options.factors = {1};
  return options.part.empty() ? MeasureEverything(options) : RunPart(options, argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "korvane-bench: " << error.what() << '\n';
    return 2;
  }
}
