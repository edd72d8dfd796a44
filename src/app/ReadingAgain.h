// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

#include "controls/NoticeBar.h"

namespace korvane {

// Reads once more what a window shows. A read that cannot be done at the moment is made up for afterwards.
class ReadingAgain : public QObject {
 public:
  // `read` gives false when it cannot be done now.
  explicit ReadingAgain(std::function<bool()> read);

  // In the event loop's next turn.
  void start();

 private:
  std::function<bool()> read_;
  QTimer next_;
};

// Offers it where the user has typed something, which it would take away. `file`: the program's path.
Notice ReadAgainNotice(const QString& file, Notice::Follow read);

}  // namespace korvane
