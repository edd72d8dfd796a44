// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTimer>

#include <optional>

#include "app/BlockNotices.h"

namespace korvane {

class CatalogueService;
class EditorLauncher;
class NoticeBar;
struct ObjectNode;
struct Services;

// The parts of the main window's notice bar, in the order in which they are seen.
enum MainNotices {
  missingFileNotices,
  lineEndNotices,
  keptTextNotices,
  objectNotices,
  typedNotices,
  editNotices,
  readAgainNotices
};

// Says where what is shown is not what the chosen node promises, and once there is a catalogue, what that
// knows of the object: at once from what has been read, and again a little after the last selection, when
// changed files have been read too.
class ObjectNotices {
 public:
  ObjectNotices(NoticeBar& bar, EditorLauncher& launcher, const Services& services)
      : bar_(bar), launcher_(launcher), services_(services) {}

  // Which lives as long as this. It is never made to read for the first time.
  void useCatalogue(CatalogueService& names);

  // About an object that has just been shown, from its file as it is now.
  void tellAbout(const ObjectNode& node);
  // The same in two steps, of which the second one reads the file.
  void announce(const ObjectNode& node);
  void tellAnnounced();
  void clear();

 private:
  struct Shown {
    LookedFor object;
    ShownBlock block;
  };
  void tell();

  NoticeBar& bar_;
  EditorLauncher& launcher_;
  const Services& services_;
  CatalogueService* names_ = nullptr;
  std::optional<LookedFor> announced_;  // and not yet told about
  std::optional<Shown> shown_;
  QTimer refresh_;
};

}  // namespace korvane
