// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

#include "app/ObjectChange.h"
#include "app/Worker.h"
#include "compare/Comparison.h"

namespace korvane {

struct Services;

// Compares the game folder with the original game in a worker, for the windows that show what differs.
class DataComparison : public QObject {
  Q_OBJECT

 public:
  using ResultPtr = std::shared_ptr<const Comparison>;

  explicit DataComparison(const Services& services);

  // The folder or archive (the program's path) that the user has chosen for this game folder; empty: the
  // archives in the game folder itself.
  QString original() const;
  void setOriginal(const QString& path);
  // Why there is nothing to compare with, as a sentence; empty when it can be tried.
  QString whyNoOriginal() const;

  // The newest finished one; nullptr before the first. It never changes.
  const ResultPtr& result() const { return result_; }
  bool isRunning() const { return worker_.isRunning(); }
  // `text`: also items in which only order, spacing or comments differ.
  void start(bool text = false);
  // What was found before stays.
  void cancel();
  // It was about another folder.
  void forget();

 Q_SIGNALS:
  void resultChanged();
  void runningChanged();
  void progress(int done, int all);

 private:
  const Services& services_;
  ResultPtr result_;
  Worker worker_;
};

// The objects that the modification adds or changes.
std::vector<ObjectChange> ChangedObjects(const Comparison& comparison);

}  // namespace korvane
