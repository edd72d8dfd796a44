// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDeadlineTimer>
#include <QString>

namespace korvane {

// True when the game's program lies in the folder (the program's path text).
bool HoldsGame(const QString& folder);

// Answers HoldsGame for as often as it is asked: another folder is looked at at once, the same one again only
// so often that looking takes a small part of the time, since a slow disk must not hold up the window.
class GameFolderCheck {
 public:
  bool holdsGame(const QString& folder);

 private:
  QString folder_;
  bool holdsGame_ = false;
  QDeadlineTimer nextLook_;
};

}  // namespace korvane
