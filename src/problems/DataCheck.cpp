// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/DataCheck.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/CatalogueService.h"
#include "check/Checker.h"

namespace korvane {

namespace {

constexpr std::chrono::seconds kPollInterval(3);

// Files that have not changed are taken over from one catalogue to the next.
bool SameFiles(const CataloguePtr& a, const CataloguePtr& b) {
  return a != nullptr && b != nullptr && a->sources() == b->sources() &&
         std::ranges::equal(a->files(), b->files());
}

}  // namespace

int DataCheck::Result::count(Level level) const {
  return static_cast<int>(std::ranges::count(findings, level, &Finding::level));
}

DataCheck::DataCheck(CatalogueService& names) : names_(names) {
  connect(&names_, &CatalogueService::changed, this, &DataCheck::namesRead);
  connect(&names_, &CatalogueService::progress, this, [this](int done, int all) {
    if (asked_) Q_EMIT progress(done, all);
  });
  poll_.setInterval(kPollInterval);
  connect(&poll_, &QTimer::timeout, this, [this] {
    if (!isRunning()) names_.refresh();
  });
}

DataCheck::~DataCheck() = default;

void DataCheck::start() {
  asked_ = true;
  passOver_ = false;
  names_.refresh();
  Q_EMIT runningChanged();
}

void DataCheck::cancel() {
  passOver_ = std::exchange(asked_, false);
  again_ = false;
  worker_.request_stop();
  if (!isRunning()) Q_EMIT runningChanged();
}

void DataCheck::follow(bool wanted) {
  following_ = wanted;
  if (wanted) {
    poll_.start();
  } else {
    poll_.stop();
  }
}

void DataCheck::namesRead() {
  if (std::exchange(passOver_, false)) {
    checked_ = names_.catalogue();
  } else if (asked_ || (following_ && !SameFiles(checked_, names_.catalogue()))) {
    check();
  }
}

// The worker has its own hold on the catalogue, and what it hands over never changes.
void DataCheck::check() {
  asked_ = false;
  if (worker_.joinable()) {
    again_ = true;
    worker_.request_stop();
    return;
  }
  checked_ = names_.catalogue();
  worker_ = std::jthread([this, catalogue = checked_, notes = notes_](const std::stop_token& stop) {
    const auto tell = [this](std::size_t done, std::size_t all) {
      QMetaObject::invokeMethod(
          this, [this, done, all] { Q_EMIT progress(static_cast<int>(done), static_cast<int>(all)); },
          Qt::QueuedConnection);
    };
    const Checker checker(catalogue, notes ? RuleSet::all() : RuleSet::usual());
    auto found = checker.check({.jobs = 0, .progress = tell}, stop);
    QMetaObject::invokeMethod(
        this, [this, found = std::move(found), notes]() mutable { take(std::move(found), notes); },
        Qt::QueuedConnection);
  });
  Q_EMIT runningChanged();
}

void DataCheck::take(std::optional<Findings> findings, bool withNotes) {
  worker_.join();
  worker_ = {};
  if (std::exchange(again_, false)) {
    check();
    return;
  }
  if (findings) {
    result_ = std::make_shared<const Result>(Result{std::move(*findings), withNotes});
    Q_EMIT resultChanged();
  }
  Q_EMIT runningChanged();
}

}  // namespace korvane
