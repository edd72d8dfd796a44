// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <string_view>
#include <vector>

#include "manualeditor/FindingMarks.h"

namespace korvane {

class IniTextEdit;
class ScintillaView;

// One of the texts that the control can show, with all that belongs to it: its undo, marks, findings and
// folds, and how it was last seen. Only the shown one changes. It must go before the control does.
class TextDocument {
 public:
  explicit TextDocument(IniTextEdit& control) : control_(control) {}
  ~TextDocument();
  TextDocument(const TextDocument&) = delete;
  TextDocument& operator=(const TextDocument&) = delete;

  void show();
  bool isShown() const;

  // The text, until its next change.
  std::string_view utf8() const;
  bool isModified() const;

 private:
  friend class IniTextEdit;

  // Between the two another document is shown.
  void leave(const ScintillaView& view);
  void takePlace(const ScintillaView& view);
  void enter(const ScintillaView& view) const;

  IniTextEdit& control_;
  void* document_ = nullptr;  // the control's, which counts its users

  // While it is not shown. The control's text stays where it is as long as nobody changes it.
  std::string_view utf8_;
  bool modified_ = false;
  FindingMarks::Shown findings_;
  qsizetype anchor_ = 0;
  qsizetype cursor_ = 0;
  qsizetype topLine_ = 0;
  qsizetype left_ = 0;             // pixels
  qsizetype width_ = 1;            // of what was seen, in pixels
  std::vector<qsizetype> folded_;  // the lines of the headers
};

}  // namespace korvane
