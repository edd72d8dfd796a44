// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>

#include "monkey/Monkey.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

#ifdef __SANITIZE_ADDRESS__
constexpr int kPatience = 5000;  // milliseconds without an answer
#else
constexpr int kPatience = 1000;
#endif
constexpr int kBusyMachine = 10;  // times as long, where other programs want the processor too
constexpr std::size_t kMiB = std::size_t{1} << 20;
constexpr std::size_t kMostGrowth = 6 * kMiB;  // of Qt's caches of fonts

// The number behind "--name=" on the command line.
int Argument(const char* name, int otherwise) {
  for (const QString& argument : QCoreApplication::arguments()) {
    const QString start = QString("--%1=").arg(name);
    if (argument.startsWith(start)) return argument.mid(start.size()).toInt();
  }
  return otherwise;
}

std::string HashOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return std::to_string(std::hash<std::string>()(bytes));
}

// Everything below the root that is not the program's to change. Qt's dialog for files keeps its size in a
// file.
std::set<std::string> Untouchable(const fs::path& root) {
  std::set<std::string> paths;
  for (fs::recursive_directory_iterator it(root), end; it != end; ++it) {
    const std::string path = it->path().lexically_relative(root).generic_string();
    if (path == "settings" || path == "home/game" || path == "home/data") {
      it.disable_recursion_pending();
    } else if (path != "home/QtProject.conf") {
      paths.insert(path + ' ' + (it->is_directory() ? std::string() : HashOf(it->path())));
    }
  }
  return paths;
}

// Qt talks a lot when it is used without sense; once is enough.
void PrintOnce(QtMsgType, const QMessageLogContext&, const QString& text) {
  static std::set<QString> printed;
  if (printed.insert(text).second) std::fprintf(stderr, "%s\n", qPrintable(text));
}

void Print(int seed, const MonkeyReport& report) {
  std::printf(
      "seed %d: %d events, %d rounds, %zu saves, %zu files restored, longest without an answer %d ms (%s), "
      "longest work %d ms, "
      "heap %.1f MiB then %.1f MiB, resident %.0f MiB\n",
      seed, report.events, report.rounds, report.saves, report.restored,
      static_cast<int>(report.longest.count()), report.longestDuring.c_str(),
      static_cast<int>(report.longestWork.count()), static_cast<double>(report.heapWarm) / kMiB,
      static_cast<double>(report.heapEnd) / kMiB, static_cast<double>(report.resident) / kMiB);
  std::fflush(stdout);
}

// Those of the program: chance has to come to each in a long run.
constexpr std::array kWindows = {
    "CmdSetFormat", "CompareWindow", "FindAnything",  "ForgetDialog",   "FrmAmrPar",         "FrmArmour",
    "FrmCmdBtn",    "FrmCmdSet",     "FrmEdit",       "FrmFun",         "FrmHelp",           "FrmManEdit",
    "FrmOpt",       "FrmReplace",    "FrmWE",         "QFontDialog",    "FurtherDataDialog", "HistoryWindow",
    "JumpPopup",    "MessageBox",    "NewNameDialog", "ProblemsWindow", "ProposalList",      "QFileDialog",
    "UsesWindow",   "frmAbout",      "frmSplash",     "frmWizard",      "FrmColData"};
constexpr int kLongRun = 100'000;  // events of all seeds

std::string WindowsNotIn(const std::set<QString>& shown) {
  std::string missed;
  for (const char* window : kWindows) {
    if (!shown.contains(window)) missed += std::string(missed.empty() ? "" : ", ") + window;
  }
  return missed;
}

MonkeyReport RunSeed(int seed) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  const QTemporaryDir folder;
  const fs::path root = folder.path().toStdString();
  for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "PATH"}) {
    qputenv(name, (root / "home").string().c_str());
  }
  qputenv("XDG_DATA_HOME", (root / "home" / "data").string().c_str());
  Monkey monkey(static_cast<unsigned>(seed), root, seed % 2 == 0);
  const std::set<std::string> before = Untouchable(root);
  const MonkeyReport report = monkey.run(Argument("events", 1500));
  Print(seed, report);
  EXPECT_EQ(report.fault, "");
  EXPECT_EQ(Untouchable(root), before);
  const int patience = Argument("patience", kPatience);
  EXPECT_LT(report.longestWork.count(), patience);
  EXPECT_LT(report.longest.count(), kBusyMachine * patience);
  EXPECT_LT(report.heapEnd, report.heapWarm + kMostGrowth);
  return report;
}

// --events=N --seed=FIRST --seeds=N --patience=MILLISECONDS. Even seeds use a damaged game.
TEST(MonkeyTest, NothingBreaksTheProgram) {
  qInstallMessageHandler(PrintOnce);
  const int first = Argument("seed", 1);
  std::set<QString> windows;
  int events = 0;
  for (int seed = first; seed < first + Argument("seeds", 2); ++seed) {
    MonkeyReport report = RunSeed(seed);
    events += report.events;
    windows.merge(report.windows);
  }
  qInstallMessageHandler(nullptr);
  const std::string missed = WindowsNotIn(windows);
  std::printf("windows not shown: %s\n", missed.empty() ? "none" : missed.c_str());
  if (events >= kLongRun) {
    EXPECT_EQ(missed, "");
  }
}

}  // namespace
}  // namespace korvane
