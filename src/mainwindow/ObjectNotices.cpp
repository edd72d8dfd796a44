// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ObjectNotices.h"

#include <chrono>
#include <utility>

#include "app/BlockNotices.h"
#include "app/CatalogueService.h"
#include "app/Services.h"
#include "ini/DataFiles.h"
#include "mainwindow/NameNotices.h"
#include "mainwindow/ObjectTreeModel.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr auto kUntilRefresh = std::chrono::milliseconds(300);  // after the last selection

}  // namespace

void ObjectNotices::useCatalogue(CatalogueService& names) {
  names_ = &names;
  refresh_.setSingleShot(true);
  refresh_.setInterval(kUntilRefresh);
  QObject::connect(&refresh_, &QTimer::timeout, &names, &CatalogueService::filesChanged);
  QObject::connect(&names, &CatalogueService::changed, &refresh_, [this] { tell(); });
}

void ObjectNotices::tellAbout(const ObjectNode& node) {
  announce(node);
  tellAnnounced();
}

void ObjectNotices::announce(const ObjectNode& node) {
  const ProgramPath path = IniPath(services_.folders.game.toStdString(), node.file);
  announced_ = {QString::fromStdString(path.text()), "Object", FromBytes(node.text)};
}

void ObjectNotices::tellAnnounced() {
  if (!announced_) return;
  const LookedFor object = *std::exchange(announced_, std::nullopt);
  const std::optional<ShownBlock> block = ReadShownBlock(object);
  if (!block) return clear();
  shown_ = {object, *block};
  tell();
  if (names_ != nullptr) refresh_.start();
}

void ObjectNotices::tell() {
  if (!shown_) return;
  std::vector<Notice> notices = NoticesOf(shown_->block, shown_->object, launcher_);
  if (names_ != nullptr && names_->isCurrent()) {
    for (Notice& notice : NameNotices(*names_->catalogue(), shown_->object, shown_->block, launcher_))
      notices.push_back(std::move(notice));
  }
  bar_.tell(objectNotices, std::move(notices));
}

void ObjectNotices::clear() {
  announced_.reset();
  refresh_.stop();
  shown_.reset();
  bar_.clear(objectNotices);
}

}  // namespace korvane
