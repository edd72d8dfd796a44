// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "platform/MessageBoxes.h"

namespace korvane {

// A text that grows line by line.
class ErrorReport {
 public:
  void EAdd(const QString& line);
  // Takes the line end off the last line.
  void EFin();

  const QString& text() const { return text_; }

 private:
  QString text_;
};

// What the user is told about a failure that ends the program. `number`: as database engines count failures,
// 0 for any other kind.
Message FailureMessage(const QString& description, int number);

}  // namespace korvane
