// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CatalogueService.h"

#include "app/Services.h"

namespace korvane {

CatalogueService::CatalogueService(const Folders& folders) : folders_(folders) {}

CatalogueService::~CatalogueService() = default;

void CatalogueService::ensure() {
  if (!isCurrent()) refresh();
}

void CatalogueService::refresh() {
  if (isReading()) {
    wanted_ = true;
    if (reading_ != sources()) worker_.request_stop();
  } else if (!folders_.game.isEmpty()) {
    start();
  }
}

void CatalogueService::filesChanged() {
  if (catalogue_ != nullptr || isReading()) refresh();
}

void CatalogueService::setFurtherData(const QStringList& paths) {
  std::vector<std::string> further;
  for (const QString& path : paths) further.push_back(path.toStdString());
  if (further == further_) return;
  further_ = std::move(further);
  filesChanged();
}

void CatalogueService::setUnsaved(const QObject& owner, Unsaved unsaved) {
  unsavedOwner_ = &owner;
  unsaved_ = std::move(unsaved);
}

CataloguePtr CatalogueService::withUnsaved(const QString& besides) const {
  CataloguePtr names = catalogue_;
  if (names == nullptr || unsavedOwner_.isNull()) return names;
  for (const auto& file : unsaved_(besides)) names = WithFile(*names, file);
  return names;
}

CatalogueSources CatalogueService::sources() const {
  return {folders_.game.toStdString(), further_};
}

// The worker has its own copy of the sources, and what it hands over never changes.
void CatalogueService::start() {
  wanted_ = false;
  reading_ = sources();
  worker_ = std::jthread([this, sources = reading_, previous = catalogue_](const std::stop_token& stop) {
    const auto tell = [this](std::size_t done, std::size_t all) {
      QMetaObject::invokeMethod(
          this, [this, done, all] { Q_EMIT progress(static_cast<int>(done), static_cast<int>(all)); },
          Qt::QueuedConnection);
    };
    const bool same = previous != nullptr && previous->sources() == sources;
    CataloguePtr read = ReadCatalogue(sources, same ? previous.get() : nullptr, stop, tell);
    QMetaObject::invokeMethod(
        this, [this, read] { take(read); }, Qt::QueuedConnection);
  });
}

// Whoever hears of a change can tell by isReading() that a newer one is on its way.
void CatalogueService::take(const CataloguePtr& read) {
  worker_.join();
  worker_ = {};
  if (read != nullptr) catalogue_ = read;
  if (wanted_ || (read != nullptr && read->sources() != sources())) refresh();
  if (read != nullptr) Q_EMIT changed();
}

}  // namespace korvane
