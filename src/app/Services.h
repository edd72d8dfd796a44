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

// Where things lie, for the whole run; paths in the program's own text, without a trailing separator.
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
  Folders& folders;
};

}  // namespace korvane
