// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/DataComparison.h"

#include <utility>

#include "app/FurtherData.h"
#include "app/Services.h"

namespace korvane {

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
