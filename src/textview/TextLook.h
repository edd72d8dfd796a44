// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

#include "textview/ScintillaView.h"

namespace korvane {

// How the game's data look as text: the font, the colours of the palette, and quiet ones for comments,
// headers and keys, which follow the text.
class TextLook : public QObject {
  Q_OBJECT

 public:
  explicit TextLook(const ScintillaView& view);

  // Call it again when either changes; what else is coloured in the control comes after it.
  void apply(const QFont& font, const QPalette& palette);

  static bool isDark(const QPalette& palette);
  static QColor mixed(const QColor& a, const QColor& b, int percentOfA);

 private:
  void applyFont(const QFont& font);
  void colourTo(int position);
  qsizetype colourLines(qsizetype from, qsizetype to);

  ScintillaView view_;
};

}  // namespace korvane
