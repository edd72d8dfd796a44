// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QsciScintilla;

namespace korvane {

// Sends messages to the text control. Positions are byte offsets in its UTF-8 text, lines count from 0.
class ScintillaView {
 public:
  explicit ScintillaView(QsciScintilla& control) : control_(&control) {}

  QsciScintilla& control() const { return *control_; }
  qsizetype send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;
  qsizetype sendText(unsigned message, qsizetype first, const char* second) const;
  void sendPointer(unsigned message, void* pointer) const;

 private:
  QsciScintilla* control_;
};

}  // namespace korvane
