// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEventLoop>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "about/HelpDesk.h"
#include "app/Services.h"
#include "monkey/Chance.h"
#include "monkey/GameLedger.h"
#include "monkey/Hands.h"
#include "monkey/Pulse.h"
#include "platform/DesktopMessageBoxes.h"
#include "settings/SettingsStore.h"
#include "support/Fakes.h"

namespace korvane {

// What a run of the monkey has shown.
struct MonkeyReport {
  int events = 0;
  int rounds = 0;
  std::size_t saves = 0;
  std::size_t restored = 0;  // files
  std::chrono::milliseconds longest{};
  std::chrono::milliseconds longestWork{};
  std::string longestDuring;
  std::size_t heapWarm = 0;  // bytes after a third of the events, between two rounds
  std::size_t heapEnd = 0;
  std::size_t resident = 0;
  std::set<QString> windows;  // names of those that were shown
  std::string fault;          // what the program must not have done; empty when all is well
};

// Uses the whole program without sense, round after round, and watches what it does to the disk. Everything
// the program may write lies below one root folder (native path).
class Monkey {
 public:
  Monkey(unsigned seed, const std::filesystem::path& root, bool damaged);
  ~Monkey();

  MonkeyReport run(int events);

 private:
  class Boxes;
  class Copy;
  class Yield;
  class End;
  class Ticker;

  void round();
  void begin();
  void endRound();
  void tick();
  void step();
  void noteWindows(const QList<QWindow*>& shown);
  void dismiss();
  void around(const char* what, const std::function<void()>& event);
  void stayInGame();
  void inspect(const char* what);
  bool isSaved(const GameLedger::Change& change) const;
  static bool isConverted(const GameLedger::Change& change);
  bool isKept(const std::string& bytes) const;
  void fail(const std::string& fault);
  void garbleSetting();
  void measureHeap();
  QString settingsFolder() const;

  Chance chance_;
  std::filesystem::path root_;
  GameLedger ledger_;
  Pulse pulse_;
  Hands hands_;

  SettingsStore settings_;
  FakeShell shell_;
  std::unique_ptr<End> end_;
  std::unique_ptr<Yield> yield_;

  MonkeyReport report_;
  QEventLoop loop_;
  std::unique_ptr<Ticker> ticker_;
  int eventsLeft_ = 0;
  int warmAt_ = 0;
  int longestRound_ = 0;
  int roundLeft_ = 0;
  int depth_ = 0;
  int ticksWithoutWindow_ = 0;
  bool over_ = false;
};

}  // namespace korvane
