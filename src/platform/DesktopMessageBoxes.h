// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MessageBoxes.h"

namespace korvane {

class HelpViewer;

// Message boxes on the screen. The Help button of a message opens its topic and leaves the box open.
class DesktopMessageBoxes : public MessageBoxes {
 public:
  explicit DesktopMessageBoxes(HelpViewer& help) : help_(help) {}

  bool show(const Message& message, QWidget* owner) override;
  int ask(const Question& question, QWidget* owner) override;

 private:
  HelpViewer& help_;
};

}  // namespace korvane
