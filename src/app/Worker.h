// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

namespace korvane {

// Runs one job at a time in a thread of its own, for a window that shows what comes of it.
class Worker : public QObject {
  Q_OBJECT

 public:
  using Clock = std::chrono::steady_clock;

  // How far a job is; the window is told now and then. For one thread at a time.
  class Teller {
   public:
    void operator()(std::size_t done, std::size_t all);

   private:
    friend class Worker;
    Teller(Worker& worker, int run) : worker_(worker), run_(run) {}

    Worker& worker_;
    int run_;
    Clock::time_point told_;
  };
  // Runs in the thread of the worker's owner; nothing: the job has come to nothing.
  using Deliver = std::function<void()>;
  // Runs in the worker and owns all that it uses.
  using Job = std::function<Deliver(const std::stop_token& stop, Teller& tell)>;

  using QObject::QObject;
  // Waits for a job that runs.
  ~Worker() override = default;

  // A job that still runs is told to stop, and what comes of it is dropped.
  void start(Job job);
  // The same, and nothing takes its place.
  void stop();
  bool isRunning() const { return thread_.joinable(); }

 Q_SIGNALS:
  void progress(int done, int all);
  // Nothing runs any more.
  void finished();

 private:
  void begin();
  void end(int run, const Deliver& deliver);

  int run_ = 0;
  Job next_;  // waits for the end of the one that runs
  std::jthread thread_;
};

}  // namespace korvane
