// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ToolDialog.h"

#include <QCloseEvent>

#include "controls/Placement.h"

namespace korvane {

void ToolDialog::closeEvent(QCloseEvent* event) {
  if (placements_ != nullptr) SavePlacement(*placements_, *this);
  event->accept();
  calls_.close();
}

}  // namespace korvane
