// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/HelpDesk.h"

#include "controls/Present.h"

namespace korvane {

FrmHelp& HelpDesk::window() {
  if (window_.isNull()) {
    window_ = new FrmHelp(helpFile_);
    window_->setAttribute(Qt::WA_DeleteOnClose);
    connect(window_, &FrmHelp::webLinkOpened, this, &HelpDesk::webLinkOpened);
  }
  return *window_;
}

void HelpDesk::showContents() {
  window().showContents();
  Present(window());
}

void HelpDesk::showTopic(int topic) {
  window().showTopic(topic);
  Present(window());
}

}  // namespace korvane
