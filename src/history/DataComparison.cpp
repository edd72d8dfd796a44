// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/DataComparison.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "app/FurtherData.h"
#include "app/Services.h"
#include "compare/ExportFormats.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::string_view kDataFolder = "Data\\INI\\";
constexpr std::size_t kMostKeys = 5;  // that are told of one object

QString TextOf(const ItemChange& change) {
  if (change.state == ItemState::added) return "The original has no such object.";
  QStringList lines("Not as in the original:");
  for (std::size_t i = 0; i < std::min(change.keys.size(), kMostKeys); ++i)
    lines += QString::fromStdString(KeyChangeText(change.keys[i]));
  if (change.keys.empty()) lines += "order, spacing or comments";
  if (change.keys.size() > kMostKeys) lines += QStringLiteral("%1 more").arg(change.keys.size() - kMostKeys);
  return lines.join('\n');
}

}  // namespace

std::vector<ObjectChange> ChangedObjects(const Comparison& comparison) {
  const GameStructure& structure = GameStructure::get();
  std::vector<ObjectChange> objects;
  for (const ItemChange& each : comparison.items) {
    const bool isObject =
        each.kind == structure.kind("Object") || each.kind == structure.kind("ObjectReskin");
    if (!isObject || each.state == ItemState::removed) continue;
    const std::string& path = comparison.fileOf(each).path;
    objects.push_back({QString::fromStdString(path.substr(std::min(path.size(), kDataFolder.size()))),
                       FromBytes(each.name), TextOf(each)});
  }
  return objects;
}

DataComparison::DataComparison(const Services& services) : services_(services) {
  connect(&worker_, &Worker::progress, this, &DataComparison::progress);
  connect(&worker_, &Worker::finished, this, &DataComparison::runningChanged);
}

QString DataComparison::original() const {
  return OriginalDataOf(services_.settings, services_.folders.game);
}

void DataComparison::setOriginal(const QString& path) {
  SaveOriginalData(services_.settings, services_.folders.game, path);
}

QString DataComparison::whyNoOriginal() const {
  const QString path = original();
  if (path.isEmpty()) {
    const bool none = ArchivesOf(services_.folders.game.toStdString()).paths.empty();
    return none ? "There is no archive (.big) in the game folder: choose the original." : QString();
  }
  const std::string reason = WhyNoDataSource(path.toStdString());
  return reason.empty() ? QString() : path + ": " + QString::fromStdString(reason) + '.';
}

void DataComparison::start(bool text) {
  const std::string game = services_.folders.game.toStdString();
  const QString chosen = original();
  DataSource source = chosen.isEmpty() ? ArchivesOf(game) : DataSource{{chosen.toStdString()}};
  worker_.start([this, text, game, source = std::move(source)](const std::stop_token& stop,
                                                               Worker::Teller& tell) -> Worker::Deliver {
    const auto report = [&tell](std::size_t done, std::size_t all) { tell(done, all); };
    auto compared = CompareSources(source, {{game}}, {.kinds = {}, .text = text, .progress = report}, stop);
    if (!compared) return {};
    return [this, result = std::make_shared<const Comparison>(std::move(*compared))] {
      result_ = result;
      Q_EMIT resultChanged();
    };
  });
  Q_EMIT runningChanged();
}

void DataComparison::cancel() {
  worker_.stop();
}

void DataComparison::forget() {
  worker_.stop();
  if (std::exchange(result_, nullptr) != nullptr) Q_EMIT resultChanged();
}

}  // namespace korvane
