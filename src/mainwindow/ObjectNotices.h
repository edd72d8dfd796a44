// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

class EditorLauncher;
class NoticeBar;
struct ObjectNode;
struct Services;

// The parts of the main window's notice bar, in the order in which they are seen.
enum MainNotices { missingFileNotices, lineEndNotices, objectNotices, typedNotices, editNotices };

// Says where what is shown is not what the chosen node promises.
class ObjectNotices {
 public:
  ObjectNotices(NoticeBar& bar, EditorLauncher& launcher, const Services& services)
      : bar_(bar), launcher_(launcher), services_(services) {}

  // About an object that has just been shown, from its file as it is now.
  void tellAbout(const ObjectNode& node);
  void clear();

 private:
  NoticeBar& bar_;
  EditorLauncher& launcher_;
  const Services& services_;
};

}  // namespace korvane
