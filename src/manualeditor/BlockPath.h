// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/LinkLabel.h"

namespace korvane {

class BlockOutline;
struct TextBlock;

// Says in which blocks the cursor stands, from the outermost; a click on a step goes to its header.
class BlockPath : public LinkLabel {
  Q_OBJECT

 public:
  explicit BlockPath(BlockOutline& outline, QWidget* parent = nullptr);

  // The steps as plain text, all of them.
  QString steps() const { return steps_; }

  // As wide as the toolbar lets it be.
  QSize sizeHint() const override { return {0, QLabel::sizeHint().height()}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void show();
  QString linkTo(const TextBlock& block, int width) const;  // in pixels
  void follow(const QString& link);

  BlockOutline& outline_;
  QString steps_;
};

}  // namespace korvane
