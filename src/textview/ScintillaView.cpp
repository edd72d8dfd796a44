// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ScintillaView.h"

#include <Qsci/qsciscintilla.h>

namespace korvane {

qsizetype ScintillaView::send(unsigned message, qsizetype first, qsizetype second) const {
  return control_->SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
}

qsizetype ScintillaView::sendText(unsigned message, qsizetype first, const char* second) const {
  return control_->SendScintilla(message, static_cast<std::uintptr_t>(first), second);
}

void ScintillaView::sendPointer(unsigned message, void* pointer) const {
  control_->SendScintilla(message, 0UL, pointer);
}

}  // namespace korvane
