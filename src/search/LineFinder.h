// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>
#include <vector>

#include "app/NameSource.h"
#include "app/Places.h"

namespace korvane {

// A line that was found.
struct FoundLine {
  QStringList branches{};  // captions of the tree's branches that lead to it
  FilePlace place{};
  QString text{};           // of the line, without the blanks around it
  NameHere name{};          // that it stands for; empty: none
  bool nowhere = false;     // that name is defined nowhere
  bool definition = false;  // of what uses are sought of
};

struct FoundLines {
  std::vector<FoundLine> lines{};
  int done = 0;  // steps of `all`
  int all = 0;
  QStringList skipped{};  // files that could not be searched, with reasons
  bool full = false;      // there are more lines than are handed over
};

// Looks for lines in a worker and hands them over in batches.
class LineFinder : public QObject {
  Q_OBJECT

 public:
  static constexpr std::size_t kMostLines = 5000;

  // What a search tells from the worker.
  class Teller {
   public:
    // False: the search is to end, as it was stopped or has found enough.
    bool found(FoundLine line);
    bool goesOn() const { return !stop_.stop_requested() && !batch_.full; }
    void step(int done, int all);
    void skipped(const QString& file);
    const std::stop_token& stop() const { return stop_; }

   private:
    friend class LineFinder;
    using Clock = std::chrono::steady_clock;
    Teller(LineFinder& finder, int run, std::stop_token stop)
        : finder_(finder), run_(run), stop_(std::move(stop)) {}
    void tellWhenDue();
    void tell();

    LineFinder& finder_;
    int run_;
    std::stop_token stop_;
    FoundLines batch_;
    std::size_t total_ = 0;
    Clock::time_point told_;  // long ago: the first line is told at once
  };
  using Search = std::function<void(Teller&)>;

  // The search runs in the worker and owns all that it uses. One that still runs is stopped before: it ends
  // within the time of one file.
  void start(Search search);
  void stop();
  bool isRunning() const { return worker_.joinable(); }

 Q_SIGNALS:
  void found(const FoundLines& lines);
  // Once for each search that was not stopped by another one.
  void finished(bool stopped);

 private:
  void end(int run, bool stopped);

  int run_ = 0;
  std::jthread worker_;
};

}  // namespace korvane
