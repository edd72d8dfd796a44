// SPDX-License-Identifier: GPL-3.0-or-later
#include "PeerParts.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>

#include <ctime>
#include <iostream>

#include "Measure.h"
#include "Windows.h"
#include "search/LineSearches.h"
#include "startup/Program.h"

namespace korvane {

namespace {

double ProcessorMilliseconds() {
  return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

std::size_t LinesFound(LineFinder& finder, const CatalogueSources& sources,
                       const QRegularExpression& pattern) {
  std::size_t lines = 0;
  bool whole = true;
  QEventLoop loop;
  const auto counting = QObject::connect(&finder, &LineFinder::found, [&](const FoundLines& found) {
    lines += found.lines.size();
    whole = whole && !found.full && found.skipped.isEmpty();
  });
  QObject::connect(&finder, &LineFinder::finished, &loop, &QEventLoop::quit);
  finder.start(LinesWith(sources, pattern));
  loop.exec();
  QObject::disconnect(counting);
  if (!whole) {
    throw std::runtime_error("not everything was searched");
  }
  return lines;
}

// The command of the main window that opens the data file.
QAction& CommandOf(const std::string& file) {
  for (QAction* command : Window("FrmEdit").findChildren<QAction*>()) {
    if (command->text() == QString::fromStdString(file)) {
      return *command;
    }
  }
  throw std::runtime_error("no command opens " + file);
}

}  // namespace

void FindAsPeer(const std::filesystem::path& game, const std::string& text, int runs) {
  const CatalogueSources sources{ProgramQText(game).toStdString()};
  const QRegularExpression pattern = TextToFind{QString::fromStdString(text)}.pattern();
  LineFinder finder;
  for (int run = 0; run < runs; ++run) {
    const Clock::time_point start = Clock::now();
    const double processor = ProcessorMilliseconds();
    const std::size_t lines = LinesFound(finder, sources, pattern);
    std::cout << lines << ' ' << MillisecondsSince(start) << ' ' << ProcessorMilliseconds() - processor
              << '\n';
  }
}

void EditAsPeer(const BenchFolders& folders, const std::string& file) {
  BenchDesk desk(folders);
  Program program(desk.services, desk.folders, {});
  program.StartProgram();
  CommandOf(file).trigger();
  QApplication::exec();
}

}  // namespace korvane
