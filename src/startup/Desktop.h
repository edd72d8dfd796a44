// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "about/HelpDesk.h"
#include "app/Services.h"
#include "platform/DesktopMessageBoxes.h"
#include "platform/EventYield.h"
#include "platform/PlatformShell.h"
#include "platform/Programs.h"
#include "settings/SettingsStore.h"

namespace korvane {

// The outside world as it is on the user's desktop.
class Desktop {
 public:
  Desktop();

  const Services& services() const { return services_; }
  Folders& folders() { return folders_; }

 private:
  Folders folders_;
  SettingsStore settings_;
  EventYield yield_;
  RealProcessEnd process_;
  HelpDesk help_;
  DesktopMessageBoxes messages_;
  PlatformShell shell_;
  Services services_;
};

}  // namespace korvane
