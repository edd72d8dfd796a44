// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <optional>

#include "controls/Drawing.h"

namespace korvane {

// The picture beside a step of the wizard: a drawing on a coloured panel, the same in light and dark.
class StepPicture : public QWidget {
 public:
  StepPicture(int step, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<Drawing> drawing_;
};

}  // namespace korvane
