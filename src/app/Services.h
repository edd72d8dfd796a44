// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

class DesktopShell;
class EventYield;
class HelpViewer;
class MessageBoxes;
class ProcessEnd;
class SettingsStore;

// Where things lie; paths in the program's own text, without a trailing separator. The wizard stores the game
// folder in the settings, start-up takes it from there; everybody else reads.
struct Folders {
  QString game;     // the game's installation folder
  QString program;  // the program's own folder

  QString helpFile() const { return program + QStringLiteral("\\KORVANE.HLP"); }
};

// What nearly every window uses of the outside world.
struct Services {
  SettingsStore& settings;
  MessageBoxes& messages;
  DesktopShell& shell;
  HelpViewer& help;
  ProcessEnd& process;
  EventYield& yield;
  const Folders& folders;
};

}  // namespace korvane
