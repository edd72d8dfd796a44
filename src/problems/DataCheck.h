// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "app/ObjectErrors.h"
#include "catalogue/Catalogue.h"
#include "check/Finding.h"

namespace korvane {

class CatalogueService;
class Checker;

// Checks the data of the game folder in a worker, for the windows that show what was found.
class DataCheck : public QObject {
  Q_OBJECT

 public:
  // What was found in a folder as it was at one moment.
  struct Result {
    std::shared_ptr<const Checker> checker{};  // that found it
    Findings findings{};
    bool withNotes = false;               // notes were looked for too
    std::vector<ObjectErrors> objects{};  // that have errors

    int count(Level level) const;
  };
  using ResultPtr = std::shared_ptr<const Result>;

  explicit DataCheck(CatalogueService& names);
  // Stops the worker and waits for it: at most the time of one file.
  ~DataCheck() override;

  // The newest finished one; nullptr before the first. It never changes.
  const ResultPtr& result() const { return result_; }
  bool isRunning() const { return asked_ || worker_.joinable(); }

  // Reads the files that have changed, then checks all.
  void start();
  // What was found before stays.
  void cancel();
  // Whether notes are looked for; they are not at first. A check under way goes on as it was begun.
  void setNotes(bool wanted) { notes_ = wanted; }
  // Whether to look for changed files from time to time, and to check again when there are some.
  void follow(bool wanted);

 Q_SIGNALS:
  void resultChanged();
  void runningChanged();
  void progress(int done, int all);

 private:
  void namesRead();
  void check();
  void take(ResultPtr result);

  CatalogueService& names_;
  ResultPtr result_;
  CataloguePtr checked_;  // by the last check that was begun
  QTimer poll_;
  bool notes_ = false;
  bool following_ = false;
  bool asked_ = false;     // a check waits for the names
  bool passOver_ = false;  // no check of the names that are being read
  bool again_ = false;     // another one waits for the worker's end
  std::jthread worker_;
};

}  // namespace korvane
