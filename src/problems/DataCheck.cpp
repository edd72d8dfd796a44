// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/DataCheck.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <span>
#include <utility>

#include "app/CatalogueService.h"
#include "check/Checker.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::chrono::seconds kPollInterval(3);

// Files that have not changed are taken over from one catalogue to the next.
bool SameFiles(const CataloguePtr& a, const CataloguePtr& b) {
  return a != nullptr && b != nullptr && a->sources() == b->sources() &&
         std::ranges::equal(a->files(), b->files());
}

constexpr std::size_t kMostTexts = 5;  // of one object

// The object in which a finding stands: its name, or an empty text.
std::string_view ObjectAt(const CatalogueFile& file, int line) {
  const GameStructure& structure = GameStructure::get();
  const std::uint32_t block = file.blockAt(static_cast<std::uint32_t>(line));
  if (block == CatalogueFile::kNone) return {};
  const auto found =
      std::ranges::find(file.definitions(), file.outermost(block), &CatalogueFile::Definition::block);
  if (found == file.definitions().end()) return {};
  const bool isObject =
      found->kind == structure.kind("Object") || found->kind == structure.kind("ObjectReskin");
  return isObject ? file.name(found->name) : std::string_view();
}

std::vector<ObjectErrors> ErrorsOfObjects(const Findings& findings, const Catalogue& catalogue) {
  constexpr std::string_view kFolder = "Data\\INI\\";
  std::map<std::pair<std::string, std::string_view>, std::vector<const Finding*>> objects;
  for (const Finding& finding : findings) {
    const CatalogueFile* file = finding.level == Level::error ? catalogue.file(finding.file) : nullptr;
    if (file == nullptr) continue;
    const std::string_view name = ObjectAt(*file, finding.line);
    if (!name.empty()) objects[{file->source().path.substr(kFolder.size()), name}].push_back(&finding);
  }
  std::vector<ObjectErrors> all;
  for (const auto& [object, found] : objects) {
    QStringList texts;
    for (const Finding* each : std::span(found).first(std::min(found.size(), kMostTexts)))
      texts += QString::fromStdString(each->text);
    if (found.size() > kMostTexts) texts += QStringLiteral("%1 more").arg(found.size() - kMostTexts);
    all.push_back({QString::fromStdString(object.first), FromBytes(object.second), texts.join('\n')});
  }
  return all;
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
  if (!names_.isCurrent()) return;  // other data are wanted by now, and are being read
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
    const auto checker =
        std::make_shared<const Checker>(catalogue, notes ? RuleSet::all() : RuleSet::usual());
    ResultPtr result;
    if (auto found = checker->check({.jobs = 0, .progress = tell}, stop)) {
      auto objects = ErrorsOfObjects(*found, *catalogue);
      result = std::make_shared<const Result>(Result{checker, std::move(*found), notes, std::move(objects)});
    }
    QMetaObject::invokeMethod(
        this, [this, result] { take(result); }, Qt::QueuedConnection);
  });
  Q_EMIT runningChanged();
}

void DataCheck::take(ResultPtr result) {
  worker_.join();
  worker_ = {};
  if (std::exchange(again_, false)) {
    check();
    return;
  }
  if (result != nullptr) {
    result_ = std::move(result);
    Q_EMIT resultChanged();
  }
  Q_EMIT runningChanged();
}

}  // namespace korvane
